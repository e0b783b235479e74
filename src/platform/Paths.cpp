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

fs::path pathFromUtf8(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string utf8FromPath(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

} // namespace platform
