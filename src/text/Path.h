#pragma once

#include <filesystem>

#include "text/Text.h"

/// Files as texts name them.
namespace text {

/// The path under which the file system knows a name or relative path that stands in a project.
/// Both slashes end a folder.
std::filesystem::path nativePath(TextView text);

/// A path as text to show.
Text displayText(const std::filesystem::path& path);

/// Whether a path has something in front of an ending, which is given in small letters, as in
/// ".css".
bool hasEnding(TextView path, TextView lowerEnding);

/// Whether a path has the ending of a page in HTML.
bool isPageName(TextView path);

/// A folder as it may stand in an attribute of a page, without a slash at its end.
Text attributeText(const std::filesystem::path& folder);

} // namespace text
