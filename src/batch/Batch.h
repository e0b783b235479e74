#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "batch/Console.h"
#include "model/ProjectLock.h"
#include "platform/Files.h"

namespace batch {

using Arguments = std::vector<std::string>; ///< in UTF-8

/// The arguments of a command, without its name: words by their places, and options.
struct CommandLine {
    Arguments words;
    std::map<std::string, std::string, std::less<>> options; ///< with their values: "--language"

    const std::string& operator[](std::size_t index) const { return words[index]; }
    std::filesystem::path path(std::size_t index) const {
        return platform::pathFromUtf8(words[index]);
    }
    std::size_t size() const { return words.size(); }
    bool has(std::string_view option) const { return options.contains(option); }

    /// Empty when the option is not given.
    std::string value(std::string_view option) const {
        const auto found = options.find(option);
        return found == options.end() ? std::string() : found->second;
    }
    std::filesystem::path pathValue(std::string_view option) const {
        return platform::pathFromUtf8(value(option));
    }
};

/// The batch program's exit codes.
enum ExitCode {
    exitDone = 0,
    exitFailed =
        1, ///< it could not be done or written, or there is a finding that a script must mind
    exitUsage = 2 ///< the command line was wrong; nothing was done
};

/// What a command of the batch program works with.
struct BatchSession {
    Console& console;
    std::filesystem::path programFolder;
    const char* program = "topicsmith-batch";    ///< stands before what it says of itself
    std::optional<model::ProjectLock> lock = {}; ///< of the project that the command changes
    std::optional<std::int64_t> sourceTime = {}; ///< to be written in place of the files' own times
    bool isAtTerminal = false;                   ///< somebody sees the messages as they come
    std::chrono::milliseconds patience =
        std::chrono::seconds(10); ///< while others have the project
};

/// One command of the batch program: one row of the table in BatchCommands.cpp.
struct BatchCommand {
    const char* name;
    const char* parameters; ///< as shown in the help
    const char* summary;
    std::size_t minWords; ///< without the name
    std::size_t maxWords;
    ExitCode (*run)(BatchSession& session, const CommandLine& arguments);
    /// Those that it knows, with blanks between. One that takes a value ends with "=".
    std::string_view options = {};
};

std::span<const BatchCommand> batchCommands();

/// Says what is wrong with the command line, and how it should be.
ExitCode usageError(BatchSession& session, const std::string& problem);

/// The number from 1 on that an argument is; 0 for anything else.
int numberFrom(std::string_view argument);

/// Runs the command that the arguments (without the program's name) ask for.
ExitCode runBatch(BatchSession& session, const Arguments& arguments);

} // namespace batch
