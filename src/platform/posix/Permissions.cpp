#include "platform/posix/Permissions.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestAttribute = 65536; // the system's own limit, for all names too
constexpr const char* accessList = "system.posix_acl_access";

/// Nothing when it cannot be read; `errno` says why.
std::optional<std::string> attribute(const fs::path& file, const char* name) {
    std::string value(largestAttribute, '\0');
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    if (size < 0) {
        return {};
    }
    value.resize(static_cast<std::size_t>(size));
    return value;
}

bool setAttribute(int file, const char* name, const std::string& value) {
    return ::fsetxattr(file, name, value.data(), value.size(), 0) == 0;
}

/// Whether the last call failed because there is no such thing, on this file or on this disk.
bool isMissing() {
    return errno == ENODATA || errno == ENOTSUP;
}

/// The file's list, or none where it has none: a new one may have got that of its folder.
bool takeOverAccessList(int file, const fs::path& oldFile) {
    if (const auto list = attribute(oldFile, accessList)) {
        return setAttribute(file, accessList, *list);
    }
    return isMissing() && (::fremovexattr(file, accessList) == 0 || isMissing());
}

std::vector<std::string> attributeNames(const fs::path& file) {
    std::string names(largestAttribute, '\0');
    const ssize_t size = ::listxattr(file.c_str(), names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    std::vector<std::string> list;
    for (std::size_t at = 0; at < names.size(); at += list.back().size() + 1) {
        list.emplace_back(names.c_str() + at);
    }
    return list;
}

/// False when one that may be a list of rights is lost. What vouches for the old contents is left
/// behind.
bool takeOverAttributes(int file, const fs::path& oldFile) {
    constexpr std::string_view ofContents[] = {"security.capability", "security.ima",
                                               "security.evm"};
    bool safe = true;
    for (const std::string& name : attributeNames(oldFile)) {
        const bool leave = name == accessList
                           || std::find(std::begin(ofContents), std::end(ofContents), name)
                                  != std::end(ofContents);
        if (leave) {
            continue;
        }
        const auto value = attribute(oldFile, name.c_str());
        const bool done = value && setAttribute(file, name.c_str(), *value);
        safe = safe && (done || !name.starts_with("system."));
    }
    return safe;
}

} // namespace

bool takeOverPermissions(int file, const fs::path& oldFile, const struct stat& old) {
    mode_t mode = old.st_mode & 07777;
    // Giving a file away is the superuser's right; for everybody else it becomes their own. A group
    // can be given by its members.
    if (::fchown(file, old.st_uid, old.st_gid) != 0
        && ::fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
        // The person's group was among all the others before, and the old group is now.
        const mode_t both = (mode & S_IRWXG) >> 3U & mode & S_IRWXO;
        mode = (mode & S_IRWXU) | both << 3U | both;
    }
    // Both are tried in any case.
    const bool hasList = takeOverAccessList(file, oldFile);
    if (!takeOverAttributes(file, oldFile) || !hasList) {
        mode &= mode_t{S_IRWXU};
    }
    struct stat now {};
    // Lists of other kinds than this mode may suffer from setting it.
    return ::fstat(file, &now) == 0 && ((now.st_mode & 07777) == mode || ::fchmod(file, mode) == 0);
}

} // namespace platform
