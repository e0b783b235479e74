#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Sitemaps, in which contents (`.hhc`) and index (`.hhk`) are written. Texts are in UTF-8.
namespace workshop {

using Parameter = std::pair<std::string, std::string>; ///< name as it is written, and value

/// A place that an entry leads to.
struct SitemapTarget {
    std::string title; ///< the entry's name unless it is given one of its own
    std::string page;  ///< as it stands in the file; an address elsewhere where there is none
    std::string frame = {};
    std::string window = {};
    int line = 0;
};

struct SitemapEntry {
    int depth = 1;    ///< from 1
    std::string name; ///< may be empty where another file's contents are merged
    std::vector<SitemapTarget> targets = {};
    std::string seeAlso = {};           ///< another keyword, in place of targets
    std::string merge = {};             ///< "other.chm::/other.hhc"
    bool isNew = false;                 ///< has the mark for what is new
    std::vector<Parameter> others = {}; ///< whatever else is said of it
    int line = 0;                       ///< from 1
};

struct Sitemap {
    std::vector<SitemapEntry> entries;
    std::vector<Parameter> properties; ///< of the whole
    bool isStrict = true; ///< written so that also readers that forgive nothing understand it
    bool isCut = false;   ///< it had more entries than can be read
};

/// How characters 160 to 255 are to be taken that are written as references: workshops write bytes
/// of their code page so.
inline constexpr unsigned plainReferences = 1252;

/// Reads a sitemap, which may be damaged. Lists that are closed too often do no harm; very deep
/// ones and endless texts are cut, and an entry without anything is left out.
Sitemap readSitemap(std::string_view utf8, unsigned referenceCodePage = plainReferences);

/// A keyword of an index, behind those above it, and a place that it leads to.
using KeywordTarget = std::pair<std::string, SitemapTarget>;
std::vector<KeywordTarget> keywordsOf(const std::vector<SitemapEntry>& index);

/// The number of an entry's picture in the contents; 0 for the viewer's own choice.
int pictureOf(const SitemapEntry& entry);

/// Writes one as every reader wants it.
std::string formatSitemap(const Sitemap& sitemap);

} // namespace workshop
