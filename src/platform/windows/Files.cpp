#include "platform/Files.h"

#include <aclapi.h>
#include <algorithm>
#include <new>

#include "platform/FileBytes.h"
#include "platform/FileState.h"
#include "platform/UnfinishedFile.h"
#include "platform/windows/System.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

std::error_code failure(std::errc code) {
    return std::make_error_code(code);
}

/// A device or a folder is no file to read or write.
std::error_code requireRegular(const Handle& file) {
    return GetFileType(file.get()) == FILE_TYPE_DISK ? std::error_code()
                                                     : failure(std::errc::not_supported);
}

/// The system says of a folder only that it cannot be had.
std::error_code openError(const fs::path& path) {
    const std::error_code error = lastError();
    return isFolder(path) ? failure(std::errc::is_a_directory) : error;
}

/// The system takes and gives no more at once than a 32-bit number holds.
DWORD portion(std::size_t size) {
    constexpr std::size_t most = std::size_t(1) << 30U;
    return static_cast<DWORD>(std::min(size, most));
}

std::error_code writeAll(const Handle& file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        if (WriteFile(file.get(), bytes.data(), portion(bytes.size()), &written, nullptr)
            == FALSE) {
            return lastError();
        }
        bytes.remove_prefix(written);
    }
    return {};
}

/// Writes, flushes where that is wanted, and closes.
std::error_code fill(Handle& file, std::string_view bytes, Arrival arrival = Arrival::onReturn) {
    if (const std::error_code error = writeAll(file, bytes)) {
        return error;
    }
    const bool arrived = arrival == Arrival::some || FlushFileBuffers(file.get()) != FALSE;
    return arrived && file.close() ? std::error_code() : lastError();
}

/// Whether what is written here would arrive under another name, too.
bool belongsElsewhere(const fs::path& path) {
    const Handle file(openFile(path, 0, OPEN_EXISTING, shareAll,
                               FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS));
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!file.isOpen() || GetFileInformationByHandle(file.get(), &facts) == FALSE) {
        return false;
    }
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        FILE_ATTRIBUTE_TAG_INFO tag{};
        return GetFileInformationByHandleEx(file.get(), FileAttributeTagInfo, &tag, sizeof tag)
                   != FALSE
               && IsReparseTagNameSurrogate(tag.ReparseTag);
    }
    return (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && facts.nNumberOfLinks > 1;
}

/// The file that a path stands for in the end.
std::error_code followLinks(fs::path& path) {
    const DWORD attributes = GetFileAttributesW(systemName(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return {};
    }
    const Handle file(openFile(path, 0, OPEN_EXISTING));
    if (!file.isOpen()) {
        return openError(path);
    }
    const std::wstring target = finalName(file);
    if (target.empty()) {
        return lastError();
    }
    path = target;
    return {};
}

/// Gives the new file the rights that people have on the old one, as far as the person may. Those
/// of the folder are added only if the old file took them, too.
void takeOverPermissions(const std::wstring& from, const std::wstring& to) {
    PACL rights = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                              nullptr, &rights, nullptr, &descriptor)
        == ERROR_SUCCESS) {
        GetSecurityDescriptorControl(descriptor, &control, &revision);
        const bool isProtected = (control & SE_DACL_PROTECTED) != 0;
        std::wstring name = to; // the function wants to be able to change it
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                              DACL_SECURITY_INFORMATION
                                  | (isProtected ? PROTECTED_DACL_SECURITY_INFORMATION : 0UL),
                              nullptr, nullptr, rights, nullptr);
        LocalFree(descriptor);
    }
}

/// Puts a file into another one's place. Programs that watch files, such as virus scanners, hold
/// them for moments.
std::error_code moveOver(const std::wstring& from, const std::wstring& to) {
    constexpr int attempts = 20;
    constexpr DWORD pause = 50; // milliseconds
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(from.c_str(), to.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
            != FALSE) {
            return {};
        }
        const DWORD reason = GetLastError();
        if (attempt == attempts
            || (reason != ERROR_SHARING_VIOLATION && reason != ERROR_ACCESS_DENIED)) {
            return lastError();
        }
        Sleep(pause);
    }
}

/// Fills `bytes` from a place on; cuts them where another program has shortened the file.
std::error_code readFrom(const Handle& file, std::string& bytes, std::uint64_t offset) {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    if (SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) == FALSE) {
        return lastError();
    }
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        DWORD got = 0;
        if (ReadFile(file.get(), bytes.data() + filled, portion(bytes.size() - filled), &got,
                     nullptr)
            == FALSE) {
            return lastError();
        }
        if (got == 0) {
            break;
        }
        filled += got;
    }
    bytes.resize(filled);
    return {};
}

/// Whether this is a file that may be written and holds these bytes already.
bool needsNoWriting(const fs::path& path, std::string_view bytes) {
    const Handle file(openFile(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
    LARGE_INTEGER length{};
    if (!file.isOpen() || requireRegular(file) || GetFileSizeEx(file.get(), &length) == FALSE
        || static_cast<std::uint64_t>(length.QuadPart) != bytes.size()) {
        return false;
    }
    constexpr std::size_t pieceSize = std::size_t(1) << 16U;
    std::string piece;
    for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
        piece.resize(std::min(pieceSize, bytes.size() - at));
        if (readFrom(file, piece, at) || piece != bytes.substr(at, pieceSize)) {
            return false;
        }
    }
    return true;
}

} // namespace

HANDLE openFile(const fs::path& path, DWORD access, DWORD disposition, DWORD share, DWORD flags) {
    return CreateFileW(systemName(path).c_str(), access, share, nullptr, disposition, flags,
                       nullptr);
}

std::error_code readBytes(const fs::path& path, std::string& bytes, std::uint64_t offset,
                          std::size_t count, std::uint64_t most) {
    bytes.clear();
    const Handle file(openFile(path, GENERIC_READ, OPEN_EXISTING));
    if (!file.isOpen()) {
        return openError(path);
    }
    if (const std::error_code error = requireRegular(file)) {
        return error;
    }
    LARGE_INTEGER length{};
    if (GetFileSizeEx(file.get(), &length) == FALSE) {
        return lastError();
    }
    const auto size = static_cast<std::uint64_t>(length.QuadPart);
    if (size > most) {
        return failure(std::errc::file_too_large);
    }
    try {
        bytes.resize(std::min<std::uint64_t>(size - std::min(offset, size), count));
    } catch (const std::bad_alloc&) {
        return failure(std::errc::not_enough_memory);
    }
    const std::error_code error = readFrom(file, bytes, offset);
    if (error) {
        bytes.clear();
    }
    return error;
}

std::error_code writeFile(const fs::path& path, std::string_view bytes, const FileFacts* spared) {
    const auto facts = spared != nullptr ? fileFacts(path) : std::nullopt;
    if (facts && facts->isSameFile(*spared)) {
        return FileError::isSpared;
    }
    if (belongsElsewhere(path) && DeleteFileW(systemName(path).c_str()) == FALSE
        && RemoveDirectoryW(systemName(path).c_str()) == FALSE) { // a link to a folder
        return lastError();
    }
    if (needsNoWriting(path, bytes)) {
        return {};
    }
    Handle file(openFile(path, GENERIC_WRITE, OPEN_ALWAYS));
    if (!file.isOpen()) {
        return openError(path);
    }
    if (const std::error_code error = requireRegular(file)) {
        return error;
    }
    if (SetEndOfFile(file.get()) == FALSE) { // it stands at the beginning
        return lastError();
    }
    const std::error_code error = writeAll(file, bytes);
    const bool closed = file.close();
    return error || closed ? error : lastError();
}

std::error_code createFile(const fs::path& path, std::string_view bytes, FileFacts& facts) {
    Handle file(openFile(path, GENERIC_WRITE, CREATE_NEW));
    if (!file.isOpen()) {
        return openError(path);
    }
    const std::error_code error = writeAll(file, bytes);
    const bool closed = file.close();
    facts = fileFacts(path).value_or(FileFacts());
    return error || closed ? error : lastError();
}

std::error_code writeInPlace(const fs::path& path, std::string_view bytes) {
    Handle file(openFile(path, GENERIC_WRITE, OPEN_EXISTING));
    if (!file.isOpen()) {
        return openError(path);
    }
    if (const std::error_code error = requireRegular(file)) {
        return error;
    }
    // Cut behind: where there is no room for more, all of the old room is still the file's.
    if (const std::error_code error = writeAll(file, bytes)) {
        return error;
    }
    return SetEndOfFile(file.get()) != FALSE ? fill(file, {}) : lastError();
}

std::error_code replaceFile(const fs::path& path, std::string_view bytes, Access /*access*/,
                            Arrival arrival) {
    if (bytes.size() > largestFile) {
        return failure(std::errc::file_too_large); // it could not be read again
    }
    fs::path target = path;
    if (const std::error_code error = followLinks(target)) {
        return error;
    }
    if (isFolder(target)) {
        return failure(std::errc::is_a_directory);
    }
    const std::wstring name = systemName(target);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists) {
        const Handle old(openFile(target, GENERIC_WRITE, OPEN_EXISTING));
        if (!old.isOpen()) {
            return lastError(); // replacing it could succeed against the owner's will
        }
        if (const std::error_code error = requireRegular(old)) {
            return error;
        }
    }

    constexpr int attemptLimit = 1000; // leftovers of interrupted saves with the same number
    for (int attempt = 0; attempt < attemptLimit; ++attempt) {
        const fs::path temporary = unfinishedFile(target, attempt);
        const std::wstring temporaryFile = systemName(temporary);
        Handle file(openFile(temporary, GENERIC_WRITE, CREATE_NEW));
        if (!file.isOpen()) {
            if (GetLastError() == ERROR_FILE_EXISTS) {
                continue;
            }
            return exists && GetLastError() == ERROR_ACCESS_DENIED ? FileError::folderIsClosed
                                                                   : lastError();
        }
        std::error_code error = fill(file, bytes, arrival);
        if (!error) {
            if (exists) {
                takeOverPermissions(name, temporaryFile);
                SetFileAttributesW(temporaryFile.c_str(), attributes); // such as hidden
            }
            error = moveOver(temporaryFile, name);
        }
        if (error) {
            file.close();
            DeleteFileW(temporaryFile.c_str());
        }
        return error;
    }
    return failure(std::errc::file_exists);
}

bool isFile(const fs::path& path) {
    if (fullPath(path).native().starts_with(LR"(\\.\)")) {
        return false; // a device, which is in every folder
    }
    const DWORD attributes = GetFileAttributesW(systemName(path).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? GetLastError() == ERROR_ACCESS_DENIED
                                                 : (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<FileFacts> fileFacts(const fs::path& path) {
    const Handle file(openFile(path, 0, OPEN_EXISTING, shareAll, FILE_FLAG_BACKUP_SEMANTICS));
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!file.isOpen() || GetFileInformationByHandle(file.get(), &facts) == FALSE) {
        return {};
    }
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t(high) << 32U | low; };
    constexpr std::uint64_t to1970 = 116'444'736'000'000'000; // from 1601, in steps of 100 ns
    const std::uint64_t written =
        joined(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime);
    return FileFacts{facts.dwVolumeSerialNumber, joined(facts.nFileIndexHigh, facts.nFileIndexLow),
                     joined(facts.nFileSizeHigh, facts.nFileSizeLow),
                     std::chrono::nanoseconds(100 * static_cast<std::int64_t>(written - to1970))};
}

std::error_code createFolder(const fs::path& path) {
    return isFolder(path) || CreateDirectoryW(systemName(path).c_str(), nullptr) != FALSE
               ? std::error_code()
               : lastError();
}

void turnSizeLimitIntoError() {} // there is no such limit

} // namespace platform
