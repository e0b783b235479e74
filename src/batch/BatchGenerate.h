#pragma once

#include "batch/Batch.h"
#include "model/Project.h"

/// The batch program's command that generates, and what it shares with others that write files.
namespace batch {

ExitCode generateSources(BatchSession& session, const CommandLine& arguments);

/// Where a command is to write: a file path with an extension, in a folder that exists. Says why
/// when there can be no such file, or when it would take the project's own place.
bool prepareOutput(BatchSession& session, const char* title, const char* extension,
                   const std::filesystem::path& project, std::filesystem::path& output);

/// True, and said so, when the project has no topics.
bool refuseEmpty(BatchSession& session, const model::Project& project, const char* title);

/// Writes the workshop's sources, of which this is the project file, and says what came of it; as
/// the options of the command want it.
bool generateInto(BatchSession& session, model::Project& project,
                  const std::filesystem::path& workshopFile, const CommandLine& arguments);

} // namespace batch
