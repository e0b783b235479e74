#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace help {

/// What a page of the help holds for whoever looks for something. Texts are in UTF-8.
struct HelpPage {
    std::string title;
    std::vector<std::string> keywords; ///< of the page's own keyword objects
    std::string text; ///< with the keywords, as searchable() makes it, without mark-up
};

/// Reads a page, whose code page is the one that it names itself, or else the given one.
HelpPage readHelpPage(std::string_view bytes, unsigned codePage);

/// In small letters, with one blank for all that stands between words.
std::string searchable(std::string_view utf8);

} // namespace help
