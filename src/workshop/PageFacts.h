#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace workshop {

/// Something that a page names, in UTF-8, and the line where it does.
struct PageText {
    std::string text;
    int line = 0;
};

struct Heading {
    unsigned level = 1; ///< from 1 to 6
    std::string text;
    std::string anchor; ///< empty where it has none
};

/// What a page says of itself and of others. Texts are in UTF-8, without mark-up and with their
/// references resolved.
struct PageFacts {
    PageText title;
    std::string base;                       ///< the address to which others are relative
    std::vector<PageText> addresses;        ///< of pages, pictures, style sheets and scripts
    std::vector<PageText> anchors;          ///< places in it, each once
    std::vector<PageText> repeatedAnchors;  ///< those that were there already
    std::vector<PageText> keywords;         ///< for the index; levels have a comma between
    std::vector<PageText> associativeLinks; ///< names by which other pages ask for it
    std::vector<Heading> headings;
};

/// Reads a page, which may be damaged.
PageFacts readPage(std::string_view utf8);

/// Whether a page with these anchors has the place that an address names behind its "#", by the
/// same letters as browsers want them; escapes are of the code page where they are not UTF-8.
bool hasPlace(const std::unordered_set<std::string>& anchors, const std::string& fragment,
              unsigned codePage);

/// Whether an attribute of a tag, both in small letters, is the address of a file.
bool holdsAddress(std::string_view tag, std::string_view attribute);

/// The addresses in a style sheet.
std::vector<PageText> readStyleSheet(std::string_view css, int firstLine = 1);

} // namespace workshop
