#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace model {

/// A file that a command could not make or read. The command goes on; the window is silent about
/// it or says so in passing, the batch program names it.
struct FileFailure {
    std::filesystem::path path;
    std::string reason; ///< the system's or our own words in UTF-8, without a full stop
};

using FileFailures = std::vector<FileFailure>;

} // namespace model
