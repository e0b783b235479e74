#pragma once

#include "batch/Batch.h"

namespace batch {

/// The batch program's command that makes a compiled help.
ExitCode compileHelp(BatchSession& session, const CommandLine& arguments);

/// The exit codes of the workshop's own compiler, which are the other way round.
inline constexpr int hhcFailed = 0;
inline constexpr int hhcDone = 1;

/// Compiles the one project that the arguments name, as that compiler does.
int runLikeWorkshop(BatchSession& session, const Arguments& arguments);

} // namespace batch
