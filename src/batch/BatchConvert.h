#pragma once

#include "batch/Batch.h"

/// The batch program's command that gives a project another format or language.
namespace batch {

/// Names what format 1 cannot keep. A project that would lose something in its own file is left as
/// it is; a copy is written all the same.
ExitCode convert(BatchSession& session, const CommandLine& arguments);

/// Writes the topics for an import into another project.
ExitCode exportTopics(BatchSession& session, const CommandLine& arguments);

} // namespace batch
