#pragma once

#include "batch/Batch.h"

/// The batch program's commands that bring something into a project. Nothing is written when
/// nothing was added or changed.
namespace batch {

ExitCode importVb(BatchSession& session, const CommandLine& arguments);
ExitCode importText(BatchSession& session, const CommandLine& arguments);
ExitCode importTopics(BatchSession& session, const CommandLine& arguments);
ExitCode importHelp(BatchSession& session, const CommandLine& arguments);
ExitCode importPages(BatchSession& session, const CommandLine& arguments);
ExitCode synchronise(BatchSession& session, const CommandLine& arguments);

} // namespace batch
