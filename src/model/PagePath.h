#pragma once

#include <filesystem>

#include "model/ProjectFolders.h"
#include "text/CodePage.h"

/// The page of a topic as a file.
namespace model {

/// The name that a topic's page gets from its title, with those letters that the code page has.
text::Text pageNameFor(text::TextView title, const text::CodePage& codePage);

/// The page in a page folder. Ask pageNameFault() first.
std::filesystem::path pagePath(const std::filesystem::path& pageFolder, text::TextView fileName);

/// Why a topic's file name cannot be a page in the page folder; empty when it can. A project from
/// elsewhere must not make the program touch a file outside that folder, so a name that climbs, or
/// starts at a root or drive, or means a device or a stream on Windows, is refused, on every system
/// alike.
text::TextView pageNameFault(text::TextView fileName);

/// Whether a file name may stand in the lists of the help workshop, whose compiler reads what they
/// name: it has no fault, or is empty and leads nowhere.
bool staysInPageFolder(text::TextView fileName);

/// Two names with the same key are one page: letter case does not tell pages apart, nor does the
/// kind of slash.
text::Text pageKey(text::TextView fileName);

} // namespace model
