#include "platform/MappedFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Files.h"

namespace platform {

MappedFile::MappedFile(const std::filesystem::path& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0) {
        return;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (S_ISREG(status.st_mode) && size > 0 && size <= largestFile) {
        const void* place = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        if (place != MAP_FAILED) { // NOLINT(performance-no-int-to-ptr): the system's own word
            bytes_ = {static_cast<const char*>(place), size};
        }
    }
    ::close(file);
}

MappedFile::~MappedFile() {
    if (!bytes_.empty()) {
        ::munmap(const_cast<char*>(bytes_.data()), bytes_.size());
    }
}

} // namespace platform
