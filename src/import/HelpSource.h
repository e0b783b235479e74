#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "text/Text.h"

namespace importer {

// Pages of a help are paths like "html/setup.htm" in UTF-8, without a slash in front, and may go on
// with "#part"; addresses elsewhere are as they stand.

/// The folder of a page or file, with the slash behind it, which may lean either way; empty for
/// none.
text::TextView folderOf(text::TextView path);

/// A line of its contents.
struct SourceEntry {
    int depth = 1; ///< from 1
    text::Text title;
    text::Text page;       ///< empty for none
    text::Text image = {}; ///< as in model::Topic
};

/// A keyword of its index; levels have a comma between.
struct SourceKeyword {
    text::Text keyword;
    text::Text page;
};

/// A number by which an application calls up a page.
struct SourceContext {
    text::Text name; ///< empty where the help does not keep it
    std::uint32_t number = 0;
    text::Text page;
};

/// What an author should know of a page.
struct SourceNote {
    text::Text page;
    text::Text text;
};

/// Help that somebody has made with another tool, as an import sees it: a compiled help, or a
/// workshop's project with its files. Texts are in UTF-8. Damaged parts are missing parts.
class HelpSource {
public:
    /// More entries of contents or index are not looked at.
    static constexpr std::size_t mostEntries = 100000;

    /// A page or another file that holds more is taken for missing.
    static constexpr std::uint64_t largestFile = std::uint64_t(16) << 20;

    /// Reads a file of either kind; null, and the reason, when it is none.
    static std::unique_ptr<HelpSource> open(const std::filesystem::path& file, text::Text& problem);

    virtual ~HelpSource() = default;
    HelpSource(const HelpSource&) = delete;
    HelpSource& operator=(const HelpSource&) = delete;

    text::Text title;
    unsigned language = 0; ///< an LCID; 0 where nothing says
    unsigned codePage = 1252;
    text::Text homePage; ///< empty for none
    std::vector<SourceEntry> contents;
    std::vector<SourceEntry> parts; ///< the contents where pages are cut, if these are others
    std::vector<SourceKeyword> keywords;
    std::vector<SourceContext> contexts;
    std::vector<text::Text> pages; ///< all of them, as find() spells them
    bool hasNavigation = true;     ///< what pages have alike may be left out
    std::vector<text::Text> notes; ///< what an author should know of what could not be read
    std::vector<SourceNote> pageNotes;
    text::TextView missing = "which the help does not have"; ///< said of a file that it names

    /// The path of a file, without "#...", as the help spells it; nothing when it has none.
    virtual std::optional<text::Text> find(text::TextView path) const = 0;

    /// By a path that find() gave.
    virtual std::optional<std::string> read(const text::Text& path) const = 0;
    virtual std::uint64_t sizeOf(const text::Text& path) const = 0;

    /// A page in UTF-8, whose encoding its own word, its bytes or the help's language tells.
    std::optional<text::Text> readText(const text::Text& path) const;

    /// The file that an address leads to which stands on a page; nothing for one elsewhere, for
    /// one that is missing, and for a place on the same page.
    std::optional<text::Text> target(text::TextView page, text::TextView address) const;

protected:
    HelpSource() = default;

    /// Appends a line of the contents; false, and noted, when there are too many.
    bool addContents(SourceEntry entry);
};

std::unique_ptr<HelpSource> openCompiledHelp(const std::filesystem::path& file,
                                             text::Text& problem);
std::unique_ptr<HelpSource> openWorkshopProject(const std::filesystem::path& file,
                                                text::Text& problem);

/// The picture of an entry as an author chooses it for a topic: from its number in the contents, 0
/// where these name none, and from their mark for what is new.
text::Text imageOf(int picture, bool isNew);

/// A path or address up to its "#" or "?", and what comes behind "#".
text::TextView withoutAnchor(text::TextView page);
text::TextView anchorOf(text::TextView page);

/// Whether an address leads to another machine, another help, a program or a drive.
bool leadsElsewhere(text::TextView address);

/// Pages with the same key are one.
text::Text pathKey(text::TextView path);

} // namespace importer
