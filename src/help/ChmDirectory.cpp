#include "help/ChmDirectory.h"

#include <cstdint>
#include <set>

#include "help/ChmBytes.h"

namespace help {

namespace {

/// The paths in one block of the directory; none in a block of the index above it.
void takePaths(std::string_view block, std::set<std::string>& known,
               std::vector<std::string>& paths) {
    constexpr std::string_view listing = "PMGL";
    constexpr std::size_t headerSize = 0x14;
    const std::uint64_t unused = numberAt(block, listing.size(), 4);
    if (!block.starts_with(listing) || block.size() < headerSize
        || unused > block.size() - headerSize) {
        return;
    }
    block = block.substr(headerSize, block.size() - headerSize - unused);
    std::uint64_t length = 0;
    while (takePackedNumber(block, length) && length <= block.size()) {
        std::string path(block.substr(0, length));
        block.remove_prefix(length);
        std::uint64_t ignored = 0;
        for (int i = 0; i < 3; ++i) { // section, offset and size: the library finds them itself
            if (!takePackedNumber(block, ignored)) {
                return;
            }
        }
        if (path.starts_with('/') && !path.ends_with('/') && known.insert(path).second) {
            paths.push_back(std::move(path));
        }
    }
}

} // namespace

bool isCut(std::string_view file) {
    constexpr std::size_t sizePlace = 0x38; // of the offset of what holds the size, 8 bytes in
    return numberAt(file, numberAt(file, sizePlace, 8) + 8, 8) > file.size();
}

std::vector<std::string> packedPaths(std::string_view file) {
    constexpr std::size_t directoryPlace = 0x48; // of its offset in the file
    const std::uint64_t directory = numberAt(file, directoryPlace, 8);
    if (!file.starts_with("ITSF") || directory >= file.size()
        || !file.substr(directory).starts_with("ITSP")) {
        return {};
    }
    const std::string_view header = file.substr(directory);
    const std::uint64_t headerSize = numberAt(header, 0x08, 4);
    const std::uint64_t blockSize = numberAt(header, 0x10, 4);
    const std::uint64_t blocks = numberAt(header, 0x28, 4);
    std::vector<std::string> paths;
    std::set<std::string> known;
    for (std::uint64_t i = 0; i < blocks && blockSize > 0; ++i) {
        const std::uint64_t start = headerSize + i * blockSize;
        if (start >= header.size()) {
            break;
        }
        takePaths(header.substr(start, blockSize), known, paths);
    }
    return paths;
}

} // namespace help
