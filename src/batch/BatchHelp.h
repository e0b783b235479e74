#pragma once

#include "batch/Batch.h"

/// The batch program's commands about compiled help.
namespace batch {

/// Its exit code tells whether there is anything wrong.
ExitCode verify(BatchSession& session, const CommandLine& arguments);

} // namespace batch
