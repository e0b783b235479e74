#include <algorithm>

#include "platform/Files.h"
#include "platform/windows/System.h"

// The standard library of this compiler does not know shares: it takes "\\machine\share" for a
// folder of the current drive. So whole paths are made by the system.
namespace platform {

namespace fs = std::filesystem;

fs::path fullPath(const fs::path& path) {
    std::wstring name(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(name.size()), name.data(), nullptr);
    if (length == 0 || length >= name.size()) {
        return path;
    }
    name.resize(length);
    return name;
}

namespace {

/// The form that may have any length. The path must be whole.
std::wstring longForm(const std::wstring& whole) {
    if (whole.starts_with(LR"(\\?\)")) {
        return whole;
    }
    return whole.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + whole.substr(1) : LR"(\\?\)" + whole;
}

} // namespace

std::wstring systemName(const fs::path& path) {
    constexpr std::size_t usual = 240; // a folder's name has to leave room for a file's
    const std::wstring whole = fullPath(path).native();
    return whole.size() < usual ? path.native() : longForm(whole);
}

std::string libraryName(const fs::path& path) {
    return utf8FromPath(longForm(fullPath(path).native()));
}

std::wstring finalName(const Handle& file) {
    std::wstring name(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(file.get(), name.data(), static_cast<DWORD>(name.size()), 0);
    name.resize(length < name.size() ? length : 0);
    return name;
}

namespace {

/// Empty when there is nothing.
fs::path finalPath(const fs::path& path) {
    const Handle there(openFile(path, 0, OPEN_EXISTING, shareAll, FILE_FLAG_BACKUP_SEMANTICS));
    return there.isOpen() ? finalName(there) : std::wstring();
}

} // namespace

fs::path realPath(const fs::path& path) {
    if (fs::path real = finalPath(path); !real.empty()) {
        return real;
    }
    const fs::path whole = fullPath(path);
    const fs::path folder = whole.parent_path();
    return folder.empty() || folder == whole ? whole : realPath(folder) / whole.filename();
}

bool leadsOutOf(const fs::path& folder, const fs::path& path) {
    fs::path outer = finalPath(folder);
    const fs::path inner = finalPath(path);
    if (!outer.has_filename()) { // the root of a drive, whose name ends with a backslash
        outer = outer.parent_path();
    }
    return !outer.empty() && !inner.empty()
           && std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first
                  != outer.end();
}

fs::path programFolder() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return fs::path(name).parent_path();
        }
        name.resize(name.size() * 2);
    }
}

fs::path programFile(const char* name) {
    return programFolder() / (std::string(name) + ".exe");
}

std::vector<fs::path> dictionaryFolders() {
    return {}; // the program brings its own
}

// The standard library of this compiler would try to make the machine of a share.
std::error_code createFolders(const fs::path& path) {
    const fs::path parent = path.parent_path();
    if (!isFolder(path) && !parent.empty() && parent != path) {
        if (const std::error_code error = createFolders(parent)) {
            return error;
        }
    }
    return createFolder(path);
}

} // namespace platform
