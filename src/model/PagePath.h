#pragma once

#include "model/Text.h"

/// Where the page of a topic lies.
namespace model {

inline constexpr const char* pageFolderName = "html";

/// Why a topic's file name cannot be a page in the page folder; empty when it can. A project from
/// elsewhere must not make the program touch a file outside that folder, so a name that climbs,
/// or starts at a root or drive, is refused, on every system alike.
TextView pageNameFault(TextView fileName);

/// Two names with the same key are one page: letter case does not tell pages apart, nor does the
/// kind of slash.
Text pageKey(TextView fileName);

} // namespace model
