#pragma once

#include <filesystem>
#include <optional>

#include "compile/Messages.h"
#include "workshop/HelpProject.h"

namespace compile {

/// A project as it lies on the disk.
struct ProjectInput {
    workshop::HelpProject project;
    std::filesystem::path file;   ///< a full path
    std::filesystem::path folder; ///< in which it lies
    std::string shownFolder;      ///< that stands before names in messages, with its slash
    std::string shown;            ///< as messages name it

    Place placeOf(const workshop::Line& line) const;

    /// Where the help is to be written when its caller does not say.
    std::filesystem::path output(Messages& messages) const;
};

/// Reads a project with the headers that it includes; nothing, and said so, when it cannot be read.
std::optional<ProjectInput> readProjectFile(const std::filesystem::path& path, Messages& messages);

} // namespace compile
