#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/FileBytes.h"
#include "platform/FileState.h"
#include "platform/UnfinishedFile.h"
#include "platform/posix/Permissions.h"
#include "platform/posix/Status.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::error_code failure(std::errc code) {
    return std::make_error_code(code);
}

/// An open file that closes itself. Opened without waiting, so that a pipe in a file's place gives
/// an error instead of a hang.
class File {
public:
    File(const fs::path& path, int flags, mode_t mode = 0) { open(path, flags, mode); }
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// Only of one that is not open.
    void open(const fs::path& path, int flags, mode_t mode) {
        descriptor_ = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode);
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }

    /// Fills `bytes` from a place on; cuts them where another program has shortened the file.
    std::error_code read(std::string& bytes, std::uint64_t offset) const {
        std::size_t filled = 0;
        while (filled < bytes.size()) {
            const ssize_t got = ::pread(descriptor_, bytes.data() + filled, bytes.size() - filled,
                                        static_cast<off_t>(offset + filled));
            if (got < 0 && errno == EINTR) {
                continue;
            }
            if (got < 0) {
                return lastError();
            }
            if (got == 0) {
                break;
            }
            filled += static_cast<std::size_t>(got);
        }
        bytes.resize(filled);
        return {};
    }

    std::error_code write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0) {
                if (errno == EINTR) {
                    continue;
                }
                return lastError();
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    /// Some file systems report a failed write only here.
    std::error_code close() {
        if (!isOpen()) {
            return {};
        }
        return ::close(std::exchange(descriptor_, -1)) == 0 ? std::error_code() : lastError();
    }

private:
    int descriptor_ = -1;
};

std::error_code requireRegular(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) {
        return failure(std::errc::is_a_directory);
    }
    return S_ISREG(status.st_mode) ? std::error_code() : failure(std::errc::not_supported);
}

/// Whether what is written here would arrive under another name, too.
bool belongsElsewhere(const struct stat& status) {
    return S_ISLNK(status.st_mode) || (S_ISREG(status.st_mode) && status.st_nlink > 1);
}

/// Whether a path leads to a file that is to be left alone.
bool isSpared(const fs::path& path, const struct stat& status, const FileFacts* spared) {
    if (spared == nullptr) {
        return false;
    }
    const auto facts = S_ISLNK(status.st_mode) ? fileFacts(path) : std::optional(factsOf(status));
    return facts && facts->isSameFile(*spared);
}

/// Whether an open file holds these bytes and no others; false also when it cannot be read.
bool holds(const File& file, std::string_view bytes) {
    constexpr std::size_t pieceSize = std::size_t(1) << 16U;
    std::string piece;
    for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
        piece.resize(std::min(pieceSize, bytes.size() - at));
        if (file.read(piece, at) || piece != bytes.substr(at, pieceSize)) {
            return false;
        }
    }
    return true;
}

/// The file that a path stands for in the end, also when that file does not exist yet.
std::error_code followLinks(fs::path& path) {
    constexpr int linkLimit = 40;
    for (int links = 0; links < linkLimit; ++links) {
        std::error_code error;
        const fs::path target = fs::read_symlink(path, error);
        if (error) {
            return {}; // not a link: this is the place
        }
        path = path.parent_path() / target; // an absolute target replaces the folder
    }
    return failure(std::errc::too_many_symbolic_link_levels);
}

std::error_code flush(const File& file) {
    return ::fsync(file.descriptor()) == 0 ? std::error_code() : lastError();
}

/// Writes, flushes where that is wanted, and closes.
std::error_code fill(File& file, std::string_view bytes, Arrival arrival = Arrival::onReturn) {
    if (const std::error_code error = file.write(bytes)) {
        return error;
    }
    const std::error_code error = arrival == Arrival::onReturn ? flush(file) : std::error_code();
    return error ? error : file.close();
}

/// Whether a file that may be written cannot be exchanged because of the folder that it lies in, or
/// because it is a place where something is mounted.
bool isFoldersFault(int reason) {
    return reason == EACCES || reason == EPERM || reason == EROFS || reason == EBUSY;
}

/// The reason why the file cannot be exchanged.
std::error_code exchangeError(bool exists) {
    return exists && isFoldersFault(errno) ? FileError::folderIsClosed : lastError();
}

} // namespace

std::error_code readBytes(const fs::path& path, std::string& bytes, std::uint64_t offset,
                          std::size_t count, std::uint64_t most) {
    bytes.clear();
    const File file(path, O_RDONLY);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.descriptor(), &status) != 0) {
        return lastError();
    }
    if (const std::error_code error = requireRegular(status)) {
        return error;
    }
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > most) {
        return failure(std::errc::file_too_large);
    }
    try {
        bytes.resize(std::min<std::uint64_t>(size - std::min(offset, size), count));
    } catch (const std::bad_alloc&) {
        return failure(std::errc::not_enough_memory);
    }
    const std::error_code error = file.read(bytes, offset);
    if (error) {
        bytes.clear();
    }
    return error;
}

std::error_code writeFile(const fs::path& path, std::string_view bytes, const FileFacts* spared) {
    struct stat status {};
    const bool exists = ::lstat(path.c_str(), &status) == 0;
    if (exists && isSpared(path, status, spared)) {
        return FileError::isSpared;
    }
    if (exists && belongsElsewhere(status) && ::unlink(path.c_str()) != 0) {
        return lastError();
    }
    const auto size = static_cast<off_t>(bytes.size());
    const bool mayBeSame = exists && S_ISREG(status.st_mode) && status.st_size == size;
    constexpr mode_t everybody = 0666; // less what the person's mask withholds
    constexpr int flags = O_CREAT | O_NOFOLLOW;
    File file(path, flags | (mayBeSame ? O_RDWR : O_WRONLY), everybody);
    if (!file.isOpen() && mayBeSame && errno == EACCES) {
        file.open(path, flags | O_WRONLY, everybody); // it may be for writing only
    }
    if (!file.isOpen() || ::fstat(file.descriptor(), &status) != 0) {
        return lastError();
    }
    if (const std::error_code error = requireRegular(status)) {
        return error;
    }
    if (mayBeSame && status.st_size == size && holds(file, bytes)) {
        return file.close();
    }
    if (status.st_size > 0 && ::ftruncate(file.descriptor(), 0) != 0) {
        return lastError();
    }
    const std::error_code error = file.write(bytes);
    const std::error_code closeError = file.close();
    return error ? error : closeError;
}

std::error_code createFile(const fs::path& path, std::string_view bytes, FileFacts& facts) {
    constexpr mode_t everybody = 0666; // less what the person's mask withholds
    File file(path, O_WRONLY | O_CREAT | O_EXCL, everybody);
    if (!file.isOpen()) {
        return lastError();
    }
    if (const std::error_code error = file.write(bytes)) {
        return error;
    }
    struct stat status {};
    if (::fstat(file.descriptor(), &status) != 0) {
        return lastError();
    }
    facts = factsOf(status);
    return file.close();
}

std::error_code writeInPlace(const fs::path& path, std::string_view bytes) {
    File file(path, O_WRONLY);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.descriptor(), &status) != 0) {
        return lastError();
    }
    if (const std::error_code error = requireRegular(status)) {
        return error;
    }
    // Cut behind: where there is no room for more, all of the old room is still the file's.
    if (const std::error_code error = file.write(bytes)) {
        return error;
    }
    if (::ftruncate(file.descriptor(), static_cast<off_t>(bytes.size())) != 0) {
        return lastError();
    }
    return fill(file, {});
}

std::error_code replaceFile(const fs::path& path, std::string_view bytes, Access access,
                            Arrival arrival) {
    if (bytes.size() > largestFile) {
        return failure(std::errc::file_too_large); // it could not be read again
    }
    fs::path target = path;
    if (const std::error_code error = followLinks(target)) {
        return error;
    }
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists) {
        if (const std::error_code error = requireRegular(old)) {
            return error;
        }
        if (::access(target.c_str(), W_OK) != 0) {
            return lastError(); // renaming over it would succeed against the owner's will
        }
    }

    constexpr int attemptLimit =
        1000; // leftovers of interrupted saves with the same process number
    for (int attempt = 0; attempt < attemptLimit; ++attempt) {
        const fs::path temporary = unfinishedFile(target, attempt);
        File file(temporary, O_WRONLY | O_CREAT | O_EXCL,
                  exists || access == Access::owner ? 0600 : 0666);
        if (!file.isOpen()) {
            if (errno == EEXIST) {
                continue;
            }
            return exchangeError(exists);
        }
        std::error_code error;
        if (exists && !takeOverPermissions(file.descriptor(), target, old)) {
            error = lastError();
        }
        if (!error) {
            error = fill(file, bytes, arrival);
        }
        if (!error && ::rename(temporary.c_str(), target.c_str()) != 0) {
            error = exchangeError(exists);
        }
        if (error) {
            ::unlink(temporary.c_str());
            return error;
        }
        // The new name is in place; flushing the folder only makes it survive a power cut, and not
        // every file system can do that.
        const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
        if (const File handle(folder, O_RDONLY | O_DIRECTORY);
            arrival == Arrival::onReturn && handle.isOpen()) {
            static_cast<void>(flush(handle));
        }
        return {};
    }
    return failure(std::errc::file_exists);
}

fs::path pathFromUtf8(std::string_view utf8) {
    return utf8;
}

std::string utf8FromPath(const fs::path& path) {
    return path.native();
}

bool isFile(const fs::path& path) {
    std::error_code error;
    const auto status = fs::status(path, error);
    return fs::exists(status) && !fs::is_directory(status);
}

std::optional<FileFacts> fileFacts(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(factsOf(status)) : std::nullopt;
}

std::error_code createFolder(const fs::path& path) {
    std::error_code error;
    fs::create_directory(path, error);
    return error;
}

std::error_code createFolders(const fs::path& path) {
    std::error_code error;
    fs::create_directories(path, error);
    return error;
}

void turnSizeLimitIntoError() {
    ::signal(SIGXFSZ, SIG_IGN);
}

fs::path programFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path();
}

fs::path programFile(const char* name) {
    return programFolder() / name;
}

std::vector<fs::path> dictionaryFolders() {
    return {"/usr/local/share/hunspell", "/usr/share/hunspell", "/usr/share/myspell/dicts"};
}

} // namespace platform
