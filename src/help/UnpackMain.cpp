#include <algorithm>
#include <array>
#include <chm_lib.h>
#include <cstdint>
#include <cstdio>
#include <new>
#include <string>

#include "help/ChmDirectory.h"
#include "help/DirectoryCheck.h"
#include "platform/Files.h"
#include "platform/MappedFile.h"
#include "platform/Process.h"

// Unpacks a compiled help file to standard output, see help/ChmFile.cpp. This is a program of its
// own because the library trusts what it reads: a damaged file ends this program and no other.

namespace {

// A damaged file can claim any size. An index of 64 MB, which is what a compiler reads, gives a
// tree of long keywords of nearly 300 MB.
constexpr LONGUINT64 largestFile = LONGUINT64(320) << 20;
constexpr LONGINT64 largestPiece = LONGINT64(4) << 20;
constexpr std::uint64_t largestWhole = std::uint64_t(512) << 20;
constexpr platform::Limits limits = {
    .seconds = 30, .written = largestWhole, .memory = largestWhole + platform::largestFile};

void putNumber(std::uint64_t number) {
    std::array<unsigned char, 8> bytes{};
    for (unsigned char& byte : bytes) {
        byte = static_cast<unsigned char>(number & 0xFFU);
        number >>= 8U;
    }
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void put(const std::string& bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

/// What is wrong, in place of a file: without a name.
void putFault(const std::string& fault) {
    putNumber(0);
    putNumber(fault.size());
    put(fault);
}

/// False when the file is damaged.
bool unpack(chmFile* help, const std::string& path) {
    chmUnitInfo unit{};
    if (path.size() >= CHM_MAX_PATHLEN
        || chm_resolve_object(help, path.c_str(), &unit) != CHM_RESOLVE_SUCCESS
        || unit.length > largestFile) {
        return false;
    }
    // In pieces, so that a claim costs no more than what is there.
    std::string bytes;
    bytes.reserve(unit.length);
    while (bytes.size() < unit.length) {
        const std::size_t at = bytes.size();
        const auto wanted = std::min(largestPiece, static_cast<LONGINT64>(unit.length - at));
        bytes.resize(at + static_cast<std::size_t>(wanted));
        if (chm_retrieve_object(help, &unit, reinterpret_cast<unsigned char*>(bytes.data()) + at,
                                static_cast<LONGUINT64>(at), wanted)
            != wanted) {
            return false;
        }
    }
    putNumber(path.size());
    putNumber(bytes.size());
    put(path);
    put(bytes);
    return std::fflush(stdout) == 0; // what is whole stays, whatever comes next
}

/// False when something could not be read, or there is no room for more.
bool unpackAll(const std::filesystem::path& path) {
    const platform::MappedFile file(path);
    bool whole = !help::isCut(file.bytes());
    const std::vector<std::string> paths = help::packedPaths(file.bytes());
    for (const std::string& fault : help::directoryFaults(file.bytes())) {
        putFault(fault);
    }
    // The library takes a name as the system has it, and leaves it alone.
    auto* name = const_cast<std::filesystem::path::value_type*>(path.c_str());
    chmFile* help = paths.empty() ? nullptr : chm_open(name);
    if (help == nullptr) {
        return false;
    }
    for (const std::string& packed : paths) {
        if (!unpack(help, packed)) {
            putFault(packed + " cannot be unpacked");
            whole = false;
        }
        if (std::ferror(stdout) != 0) {
            break; // there is no room for more
        }
    }
    chm_close(help);
    return whole;
}

} // namespace

int main(int argc, char* argv[]) {
    platform::limitThisProgram(limits);
    platform::useStreamsForUtf8();
    const std::vector<std::string> arguments = platform::programArguments(argc, argv);
    if (arguments.size() != 1) {
        return 1;
    }
    const std::filesystem::path path = platform::pathFromUtf8(arguments.front());
    platform::confineThisProgram(path);
    try {
        return unpackAll(path) ? 0 : 1;
    } catch (const std::bad_alloc&) {
        return 1; // what is whole was written
    }
}
