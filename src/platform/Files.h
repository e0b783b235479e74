#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// What the program needs of the operating system's files beyond the standard library. The headers
/// of this folder are the same everywhere; its sources are chosen by the build, one folder per
/// system. Only regular files are read and written: a device or a pipe in a file's place gives an
/// error, never a hang.
namespace platform {

struct FileFacts;

/// What the standard has no error for.
enum class FileError {
    folderIsClosed = 1, ///< the file may be written, but its folder does not let it be exchanged
    isSpared            ///< a file that was to be left alone has this name
};
std::error_code make_error_code(FileError error);

/// No file that is read as a whole, or replaced, may hold more bytes, not even a project.
inline constexpr std::uint64_t largestFile = std::uint64_t(1) << 30U;

/// Reads a file as a whole; it is too large (std::errc::file_too_large) when it holds more than
/// `most` bytes. `bytes` is empty after a failure, which may be that there is no memory for it.
std::error_code readFile(const std::filesystem::path& path, std::string& bytes,
                         std::uint64_t most = largestFile);

/// Reads a part of a file, however large the file is: fewer bytes at its end, none behind it.
std::error_code readPart(const std::filesystem::path& path, std::string& bytes,
                         std::uint64_t offset, std::size_t count);

/// Creates or overwrites a file in place. A failure can leave it incomplete: for files that can be
/// made again. Nothing but what has this name is written: a link in the file's place, and one of
/// several names of a file, make way for a new file. A file that holds these bytes already is not
/// written, so that its time tells when they came about; whether it could be written counts all the
/// same. The file of the facts `spared` stays, by whichever name or link the path leads to it.
std::error_code writeFile(const std::filesystem::path& path, std::string_view bytes,
                          const FileFacts* spared = nullptr);

/// Creates a file where nothing has this name, and tells what the system knows of it then; with
/// std::errc::file_exists, nothing was touched. Another failure can leave it incomplete.
std::error_code createFile(const std::filesystem::path& path, std::string_view bytes,
                           FileFacts& facts);

/// Who may read a file that did not exist before.
enum class Access {
    usual, ///< as the person's system has it for new files
    owner  ///< the person alone
};

/// When the bytes of a file have reached the disk. Waiting for a disk can take longer than a key
/// may.
enum class Arrival {
    onReturn, ///< so that they survive whatever happens to the machine
    some      ///< when the system likes: for what can be made again
};

/// Replaces a file as a whole: an interruption of the program at any moment leaves the old contents
/// or the new ones, and so does one of the machine unless the bytes arrive at some time. A link
/// keeps pointing where it pointed, an existing file keeps its permissions and attributes or less
/// access, and a file that is write-protected is left alone. Other hard links to the old file keep
/// the old contents. FileError::folderIsClosed means that overwriteFile() would do.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view bytes,
                            Access access = Access::usual, Arrival arrival = Arrival::onReturn);

/// Writes over a file where it lies, for one that cannot be replaced. Its old contents are first
/// kept as `copy`, for the person alone, and stay there; without that nothing is written. An
/// interruption can leave the file incomplete; after a failure it has its old contents as far as
/// they could be put back.
std::error_code overwriteFile(const std::filesystem::path& path, std::string_view bytes,
                              const std::filesystem::path& copy);

/// A person's path, made independent of the current folder. "." and ".." are resolved, on the disk,
/// where links count; a link in the file's own place stays.
std::filesystem::path fullPath(const std::filesystem::path& path);

/// Whether something other than a folder has this name, or, of a link, the name that it leads to. A
/// file that may not be looked at counts.
bool isFile(const std::filesystem::path& path);

/// Whether both names lead to one file, which is there.
bool isSameFile(const std::filesystem::path& one, const std::filesystem::path& other);

/// The path to which links lead. Of what is not there, its folder's with its name.
std::filesystem::path realPath(const std::filesystem::path& path);

/// Whether a file or folder in `folder` is one only by its name: links lead to another place. False
/// when it is not there.
bool leadsOutOf(const std::filesystem::path& folder, const std::filesystem::path& path);

/// Makes a folder in one that is there; no error if it is there already.
std::error_code createFolder(const std::filesystem::path& path);

/// Makes a folder, with those above it that are missing.
std::error_code createFolders(const std::filesystem::path& path);

/// A path from UTF-8, and back. What is not Unicode becomes U+FFFD on Windows; elsewhere any bytes
/// come through as they are.
std::filesystem::path pathFromUtf8(std::string_view utf8);
std::string utf8FromPath(const std::filesystem::path& path);

/// A path in UTF-8 for a library that opens files by such names: on Windows in the system's long
/// form, without which they would be taken for the code page of the machine.
std::string libraryName(const std::filesystem::path& path);

/// Makes a write beyond the size limit of the process fail like any other, instead of ending the
/// program. To be called once, at the start.
void turnSizeLimitIntoError();

/// The folder of the running program, where its pictures lie; empty when it cannot be found out.
std::filesystem::path programFolder();

/// One of this program's companions in its own folder, by its name without an ending.
std::filesystem::path programFile(const char* name);

/// Where the system keeps spelling dictionaries; some may not exist.
std::vector<std::filesystem::path> dictionaryFolders();

} // namespace platform

template <>
struct std::is_error_code_enum<platform::FileError> : std::true_type {};
