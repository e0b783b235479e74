#include "platform/MappedFile.h"

#include "platform/Files.h"
#include "platform/windows/System.h"

namespace platform {

MappedFile::MappedFile(const std::filesystem::path& path) {
    const Handle file(openFile(path, GENERIC_READ, OPEN_EXISTING));
    LARGE_INTEGER size{};
    if (!file.isOpen() || GetFileType(file.get()) != FILE_TYPE_DISK
        || GetFileSizeEx(file.get(), &size) == FALSE || size.QuadPart == 0
        || static_cast<std::uint64_t>(size.QuadPart) > largestFile) {
        return;
    }
    const Handle mapping(CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    const void* place =
        mapping.isOpen() ? MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
    if (place != nullptr) {
        bytes_ = {static_cast<const char*>(place), static_cast<std::size_t>(size.QuadPart)};
    }
}

MappedFile::~MappedFile() {
    if (!bytes_.empty()) {
        UnmapViewOfFile(bytes_.data());
    }
}

} // namespace platform
