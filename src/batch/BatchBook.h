#pragma once

#include "batch/Batch.h"

/// The batch program's command that makes an electronic book.
namespace batch {

ExitCode makeEpub(BatchSession& session, const CommandLine& arguments);

} // namespace batch
