#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace help {

/// What is wrong with the directory of a compiled help file, given its bytes: everything that one
/// reader or another stumbles over, even where most do not. Nothing is unpacked for it.
std::vector<std::string> directoryFaults(std::string_view file);

} // namespace help
