#include "app/Batch.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "app/Version.h"

namespace app {
namespace {

void printUsage(std::ostream& stream) {
    stream << "Usage:\n";
    for (const BatchCommand& command : batchCommands()) {
        stream << "  topicsmith-batch " << command.name << ' ' << command.parameters << "\n      "
               << command.summary << '\n';
    }
    stream
        << "  topicsmith-batch --help | --version\n"
           "\n"
           "Results go to standard output, messages to standard error.\n"
           "Exit code: 0 done; 1 it could not be done, some file could not be written, or nothing\n"
           "was found; 2 wrong usage.\n";
}

bool knows(const BatchCommand& command, std::string_view option) {
    std::istringstream known{std::string(command.options)};
    const std::istream_iterator<std::string> begin(known);
    return std::find(begin, {}, option) != std::istream_iterator<std::string>();
}

ExitCode runCommand(BatchSession& session, const Arguments& arguments) {
    if (arguments.empty()) {
        return usageError(session, "no command given");
    }
    const std::string& name = arguments.front();
    if (name == "--help" || name == "-h") {
        printUsage(session.console.out());
        return exitDone;
    }
    if (name == "--version") {
        session.console.out() << "topicsmith-batch " << version << '\n';
        return exitDone;
    }
    const auto commands = batchCommands();
    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [&name](const BatchCommand& c) { return name == c.name; });
    if (command == commands.end()) {
        return usageError(session, "unknown command \"" + name + "\"");
    }
    CommandLine rest;
    bool wordsOnly = false; // behind "--"
    for (auto argument = arguments.begin() + 1; argument != arguments.end(); ++argument) {
        if (*argument == "--" && !wordsOnly) {
            wordsOnly = true;
        } else if (wordsOnly || !argument->starts_with("--")) {
            rest.words.push_back(*argument);
        } else if (knows(*command, *argument)) {
            rest.options.insert(*argument);
        } else {
            return usageError(session, name + " has no option \"" + *argument + "\"");
        }
    }
    if (rest.size() < command->minWords || rest.size() > command->maxWords) {
        return usageError(session, name + " expects " + command->parameters);
    }
    return command->run(session, rest);
}

} // namespace

ExitCode usageError(BatchSession& session, const std::string& problem) {
    session.console.err() << "topicsmith-batch: " << problem << "\n\n";
    printUsage(session.console.err());
    return exitUsage;
}

ExitCode runBatch(BatchSession& session, const Arguments& arguments) {
    const ExitCode code = runCommand(session, arguments);
    if (!session.console.delivered()) {
        session.console.err() << "topicsmith-batch: the output could not be written\n";
        return code == exitDone ? exitFailed : code;
    }
    return code;
}

} // namespace app
