#pragma once

#include "batch/Batch.h"

namespace batch {

/// The batch program's command that makes a web site.
ExitCode makeWebSite(BatchSession& session, const CommandLine& arguments);

} // namespace batch
