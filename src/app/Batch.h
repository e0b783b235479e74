#pragma once

#include <span>
#include <string>
#include <vector>

#include "app/Console.h"

namespace app {

using Arguments = std::vector<std::string>;

/// The batch program's exit codes.
enum ExitCode {
    exitDone = 0,
    exitFailed = 1, ///< it could not be done, or some file could not be written
    exitUsage = 2   ///< the command line was wrong; nothing was done
};

/// What a command of the batch program works with.
struct BatchSession {
    Console& console;
    std::filesystem::path programFolder;
};

/// One command of the batch program: one row of the table in BatchCommands.cpp.
struct BatchCommand {
    const char* name;
    const char* parameters; ///< as shown in the help
    const char* summary;
    std::size_t minArguments; ///< without the name
    std::size_t maxArguments;
    ExitCode (*run)(BatchSession& session, const Arguments& arguments);
};

std::span<const BatchCommand> batchCommands();

/// Says what is wrong with the command line, and how it should be.
ExitCode usageError(BatchSession& session, const std::string& problem);

/// Runs the command that the arguments (without the program's name) ask for.
ExitCode runBatch(BatchSession& session, const Arguments& arguments);

} // namespace app
