#include "platform/FileLock.h"

#include "platform/Files.h"
#include "platform/windows/System.h"

namespace platform {

// Nobody else may open it meanwhile.
FileLock::FileLock(const std::filesystem::path& path, AfterUse afterUse) {
    const DWORD flags = afterUse == AfterUse::remove
                            ? FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE
                            : FILE_ATTRIBUTE_NORMAL;
    const HANDLE file = openFile(path, GENERIC_READ | GENERIC_WRITE | DELETE, OPEN_ALWAYS,
                                 FILE_SHARE_DELETE, flags);
    const DWORD reason = GetLastError();
    handle_ = reinterpret_cast<std::intptr_t>(file);
    // The system denies access to a file that is on its way out, too.
    isTaken_ =
        !isHeld()
        && (reason == ERROR_SHARING_VIOLATION || (reason == ERROR_ACCESS_DENIED && isFile(path)));
}

FileLock::~FileLock() {
    if (isHeld()) {
        CloseHandle(reinterpret_cast<HANDLE>(handle_));
    }
}

} // namespace platform
