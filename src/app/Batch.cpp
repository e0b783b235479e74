#include "app/Batch.h"

#include <algorithm>

#include "app/Version.h"

namespace app {
namespace {

void printUsage(std::ostream& stream) {
    stream << "Usage:\n";
    for (const BatchCommand& command : batchCommands()) {
        stream << "  topicsmith-batch " << command.name << ' ' << command.parameters << "\n      "
               << command.summary << '\n';
    }
    stream << "  topicsmith-batch --help | --version\n"
              "\n"
              "Results go to standard output, messages to standard error.\n"
              "Exit code: 0 done; 1 it could not be done, or some file could not be written;\n"
              "2 wrong usage.\n";
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
    const Arguments rest(arguments.begin() + 1, arguments.end());
    const auto option = std::find_if(rest.begin(), rest.end(),
                                     [](const std::string& a) { return a.starts_with("--"); });
    if (option != rest.end()) {
        return usageError(session, name + " has no option \"" + *option + "\"");
    }
    if (rest.size() < command->minArguments || rest.size() > command->maxArguments) {
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
