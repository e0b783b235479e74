#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace generate {

/// A file that a run could not make. The run goes on; the window is silent about it, the batch
/// program names it.
struct FileFailure {
    std::filesystem::path path;
    std::string reason; ///< the system's or our own words, without a full stop
};

using FileFailures = std::vector<FileFailure>;

} // namespace generate
