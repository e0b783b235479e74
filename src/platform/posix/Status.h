#pragma once

#include <sys/stat.h>

#include "platform/FileState.h"

namespace platform {

inline FileFacts factsOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            std::chrono::seconds(status.st_mtim.tv_sec)
                + std::chrono::nanoseconds(status.st_mtim.tv_nsec)};
}

} // namespace platform
