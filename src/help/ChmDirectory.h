#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace help {

/// The paths of the files packed in a compiled help file, given its bytes, each once. The library
/// lists them only from the block that the file calls its first one, which compilers get wrong; it
/// finds them all by their paths. Damaged blocks are passed over.
std::vector<std::string> packedPaths(std::string_view file);

/// Whether a help file has lost its end.
bool isCut(std::string_view file);

} // namespace help
