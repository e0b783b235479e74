#pragma once

#include "batch/Batch.h"
#include "model/Project.h"

/// Projects as the batch program's commands read and write them.
namespace batch {

/// Loads a project that can be worked with; otherwise says why not. A project that was cut or has
/// too many topics is refused: a script must not go on with a part of it.
bool loadWhole(BatchSession& session, const std::filesystem::path& path, model::Project& project);

/// The same for a command that changes the project: no other program writes it meanwhile.
bool loadForChange(BatchSession& session, const std::filesystem::path& path,
                   model::Project& project);

/// The same, but where there is no such file the project is a new one that belongs there.
bool loadOrStart(BatchSession& session, const std::filesystem::path& path, model::Project& project);

/// The same for a command that writes the project to another file, which must not be there yet. The
/// project belongs to that one.
bool loadForCopy(BatchSession& session, const std::filesystem::path& path,
                 const std::filesystem::path& copy, model::Project& project);

/// Writes the project to its file; says why when that fails.
bool saveBack(BatchSession& session, model::Project& project);

} // namespace batch
