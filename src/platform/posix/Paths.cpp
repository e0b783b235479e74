#include <algorithm>

#include "platform/Files.h"

namespace platform {

namespace fs = std::filesystem;

fs::path fullPath(const fs::path& path) {
    std::error_code error;
    fs::path absolute = fs::absolute(path, error);
    if (error) {
        return path;
    }
    if (absolute == absolute.lexically_normal()) {
        return absolute;
    }
    const fs::path folder = fs::weakly_canonical(absolute.parent_path(), error);
    return error ? absolute : folder / absolute.filename();
}

std::string libraryName(const fs::path& path) {
    return path.string();
}

fs::path realPath(const fs::path& path) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    return error ? path : real;
}

bool leadsOutOf(const fs::path& folder, const fs::path& path) {
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    const fs::path place = error ? fs::path() : fs::canonical(path, error);
    return !error
           && std::mismatch(root.begin(), root.end(), place.begin(), place.end()).first
                  != root.end();
}

} // namespace platform
