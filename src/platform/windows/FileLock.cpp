#include "platform/FileLock.h"

#include "platform/windows/System.h"

namespace platform {

// Nobody else may open it meanwhile.
FileLock::FileLock(const std::filesystem::path& path)
    : handle_(reinterpret_cast<std::intptr_t>(
        openFile(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, FILE_SHARE_DELETE))) {}

FileLock::~FileLock() {
    if (isHeld()) {
        CloseHandle(reinterpret_cast<HANDLE>(handle_));
    }
}

} // namespace platform
