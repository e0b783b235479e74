#pragma once

#include "batch/Batch.h"

namespace batch {

/// What main() does in the programs without a window, of which `program` is one: sets streams and
/// limits up, and lets nothing thrown escape, for which it returns `failed`.
int startBatch(int argc, char* argv[], const char* program, int failed,
               int (*run)(BatchSession& session, const Arguments& arguments));

} // namespace batch
