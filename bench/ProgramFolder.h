#pragma once

#include <filesystem>
#include <fstream>

namespace bench {

/// A folder in which the window misses nothing that it would ask about.
inline std::filesystem::path programFolder() {
    const auto folder = std::filesystem::temp_directory_path() / "topicsmith-bench-program";
    const auto help = folder / "HTML Topicsmith.chm";
    if (!exists(help)) {
        create_directories(folder);
        std::ofstream(help) << ' ';
    }
    return folder;
}

} // namespace bench
