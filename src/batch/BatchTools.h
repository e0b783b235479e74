#pragma once

#include "batch/Batch.h"

/// The batch program's commands that look through the texts of a project. They change nothing, and
/// their exit code tells whether there is anything.
namespace batch {

ExitCode find(BatchSession& session, const CommandLine& arguments);
ExitCode check(BatchSession& session, const CommandLine& arguments);
ExitCode spell(BatchSession& session, const CommandLine& arguments);

} // namespace batch
