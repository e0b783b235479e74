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

} // namespace platform
