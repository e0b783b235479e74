#pragma once

#include "batch/Batch.h"

/// The batch program's commands that change texts of a whole project. They list what they change,
/// or would change, and save the project when there is anything.
namespace batch {

ExitCode replace(BatchSession& session, const CommandLine& arguments);
ExitCode rename(BatchSession& session, const CommandLine& arguments);

} // namespace batch
