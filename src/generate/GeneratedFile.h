#pragma once

#include <optional>
#include <string_view>
#include <system_error>

#include "model/FileFailure.h"
#include "platform/FileState.h"
#include "text/CodePage.h"

namespace generate {

/// A file beside `path`. Its name is that of `path` up to and including the first point, followed
/// by `extension`: my.help.hhp and "chm" give my.chm. A name without a point gets one.
std::filesystem::path siblingFile(const std::filesystem::path& path, std::string_view extension);

/// Whether two files in one folder are one on systems that do not tell letter cases apart.
bool haveSameName(const std::filesystem::path& one, const std::filesystem::path& other);

/// Why a file cannot be written over the project; nothing for any other.
std::optional<model::FileFailure> outputFault(const std::filesystem::path& output,
                                              const std::filesystem::path& project);

/// Notes a failure; does nothing for a success.
void noteFailure(model::FileFailures& failures, const std::filesystem::path& path,
                 const std::error_code& error);

/// Writes files that can be made again, noting failures. Whatever names and links say, none takes
/// the place of the project.
class GeneratedFiles {
public:
    GeneratedFiles(const std::filesystem::path& project, model::FileFailures& failures)
        : project_(project), facts_(platform::fileFacts(project)), failures_(failures) {}

    void write(const std::filesystem::path& path, const text::Bytes& contents);

private:
    const std::filesystem::path& project_;
    std::optional<platform::FileFacts> facts_;
    model::FileFailures& failures_;
};

} // namespace generate
