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

/// A folder as it may stand in an attribute of a page, without a slash at its end.
Text attributeText(const std::filesystem::path& folder);

} // namespace text
