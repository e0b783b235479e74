#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace help {

/// A place that contents, index or search lead to. Texts are in UTF-8.
struct HelpTarget {
    std::string title;
    std::string page; ///< as it stands in the file; empty for none
};

/// An entry of a sitemap, in which contents (`.hhc`) and index (`.hhk`) are written.
struct SitemapEntry {
    int depth = 1; ///< from 1
    std::string name;
    std::vector<HelpTarget> targets;
};

/// Reads a sitemap, which may be damaged. Lists that are closed too often do no harm; very deep
/// ones and endless texts are cut.
std::vector<SitemapEntry> readSitemap(std::string_view utf8);

} // namespace help
