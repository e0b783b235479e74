#pragma once

#include "batch/Batch.h"

namespace batch {

/// What main() does in the programs without a window: sets streams and limits up, and lets nothing
/// thrown escape, for which it returns `failed`.
int startBatch(int argc, char* argv[], int failed,
               int (*run)(BatchSession& session, const Arguments& arguments));

} // namespace batch
