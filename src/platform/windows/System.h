#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <windows.h>

// What the Windows sources of this folder share.
namespace platform {

/// The last error of the system, in the standard's words where it has some: they are the same on
/// all systems.
inline std::error_code lastError() {
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    const std::error_condition known = error.default_error_condition();
    return known.category() == std::generic_category()
               ? std::error_code(known.value(), std::generic_category())
               : error;
}

/// A handle that closes itself.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    HANDLE get() const { return handle_; }
    HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

    bool close() {
        return !isOpen() || CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != FALSE;
    }

private:
    HANDLE handle_;
};

/// The name for the system's functions, which take longer ones than usual in this form alone.
std::wstring systemName(const std::filesystem::path& path);

inline constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens for others to read, write and remove meanwhile, unless `share` says otherwise.
HANDLE openFile(const std::filesystem::path& path, DWORD access, DWORD disposition,
                DWORD share = shareAll, DWORD flags = FILE_ATTRIBUTE_NORMAL);

/// The name that leads there without a link; empty when there is nothing.
std::wstring finalName(const Handle& file);

inline bool isFolder(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(systemName(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace platform
