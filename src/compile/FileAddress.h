#pragma once

#include <string>
#include <string_view>

namespace compile {

/// An address of a page or a sitemap, in parts.
struct Address {
    std::string path;         ///< empty for a place on the same page
    std::string fragment;     ///< behind "#"
    bool isElsewhere = false; ///< on another machine, in another help, or no file at all
};
Address splitAddress(std::string_view address);

/// Whether a path begins with another machine's name: "\\machine\share".
bool startsAtMachine(std::string_view path);

/// Names with the same key are one, whatever system the files lie on.
std::string caseKey(std::string_view utf8);

} // namespace compile
