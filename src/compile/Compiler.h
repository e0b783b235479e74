#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "compile/CompressedStream.h"
#include "workshop/Message.h"

namespace compile {

/// What a caller may want otherwise than a workshop's project says.
struct CompileOptions {
    std::filesystem::path output = {};      ///< empty: where the project says
    std::filesystem::path otherFolder = {}; ///< files missing in the project's are looked for here
    std::string title = {};                 ///< in UTF-8; empty: the project's
    std::optional<std::int64_t> time = {};  ///< seconds since 1970; nothing: the newest input's
    unsigned jobs = 0;                      ///< threads; 0: one a processor
    bool fullTextSearch = false;            ///< also where the project does not ask for it
    bool strict = false;                    ///< nothing is written after a warning
    Progress progress = {};                 ///< of the compression; on the caller's thread
    std::stop_token stop = {};

    /// What the generated workshop's project of one of ours does not say: the folder in which that
    /// lies, for pictures and style sheets, its title in UTF-8, and that it is to be searched.
    void setOwnProject(const std::filesystem::path& folder, std::string ownTitle) {
        otherFolder = folder;
        title = std::move(ownTitle);
        fullTextSearch = true;
    }
};

struct CompileOutcome {
    std::filesystem::path output;
    std::vector<workshop::Message> messages;
    std::size_t files = 0; ///< that were packed
    std::uint64_t size = 0;
    bool isWritten = false; ///< otherwise the old file is as it was
    bool isStopped = false;
};

/// Makes a compiled help of a workshop's project (`.hhp`). The same input gives the same bytes.
CompileOutcome compileProject(const std::filesystem::path& project, const CompileOptions& options);

} // namespace compile
