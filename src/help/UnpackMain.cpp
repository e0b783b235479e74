#include <array>
#include <chm_lib.h>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/Process.h"

// Unpacks a compiled help file to standard output, see help/ChmFile.cpp. This is a program of its
// own because the library trusts what it reads: a damaged file ends this program and no other.

namespace {

/// A damaged file can claim any size.
constexpr LONGUINT64 largest = LONGUINT64(64) << 20;

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

int unpack(chmFile* help, chmUnitInfo* unit, void* /*context*/) {
    const std::string path(unit->path);
    if (unit->length > largest) {
        return CHM_ENUMERATOR_CONTINUE;
    }
    std::string bytes(unit->length, '\0');
    const LONGINT64 got =
        chm_retrieve_object(help, unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(bytes.size()));
    if (got == static_cast<LONGINT64>(bytes.size())) {
        putNumber(path.size());
        putNumber(bytes.size());
        put(path);
        put(bytes);
        std::fflush(stdout); // what is whole stays, whatever comes next
    }
    return CHM_ENUMERATOR_CONTINUE;
}

} // namespace

int main(int argc, char* argv[]) {
    constexpr unsigned seconds = 60;
    constexpr std::uint64_t bytes = std::uint64_t(2) << 30;
    platform::limitThisProgram(seconds, bytes);
    chmFile* help = argc == 2 ? chm_open(argv[1]) : nullptr;
    if (help == nullptr) {
        return 1;
    }
    chm_enumerate(help, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_SPECIAL | CHM_ENUMERATE_FILES, &unpack,
                  nullptr);
    chm_close(help);
    return std::ferror(stdout) == 0 ? 0 : 1;
}
