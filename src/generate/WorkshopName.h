#pragma once

#include <optional>

#include "model/FileFailure.h"
#include "model/Project.h"

/// Which names the help workshop's project can have.
namespace generate {

/// The name to propose for it, without a folder: that of the project up to its first point, or one
/// that suits any project where the workshop could not read that.
std::filesystem::path proposedWorkshopName(const model::Project& project);

/// The workshop project that a compiled help is made of: beside it, with its name.
std::filesystem::path workshopFileFor(const std::filesystem::path& compiledHelp);

/// Why a workshop project cannot have this name, with the file that would be wrong; nothing when it
/// can. The name has to stand in the workshop's own files, which are in its code page, and the
/// files beside it must be neither that file nor the help project; nor must it be that itself.
std::optional<model::FileFailure> workshopNameFault(const std::filesystem::path& workshopFile,
                                                    const model::Project& project);

/// The same for the compiled help that is made of them.
std::optional<model::FileFailure> compiledNameFault(const std::filesystem::path& compiledHelp,
                                                    const std::filesystem::path& project);

} // namespace generate
