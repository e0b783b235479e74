#pragma once

#include "app/Batch.h"

/// The batch program's commands about compiled help.
namespace app {

/// Its exit code tells whether there is anything wrong.
ExitCode verify(BatchSession& session, const CommandLine& arguments);

} // namespace app
