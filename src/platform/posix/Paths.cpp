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
    const fs::path name = absolute.filename();
    const bool isDetour = name == "." || name == "..";
    const fs::path resolved =
        fs::weakly_canonical(isDetour ? absolute : absolute.parent_path(), error);
    if (error) {
        return absolute;
    }
    return isDetour ? resolved : resolved / name;
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
