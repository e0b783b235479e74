#include "batch/Batch.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>

#include "platform/Version.h"

namespace batch {
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
              "Exit code: 0 done; 1 it could not be done, some file could not be written or read,\n"
              "find or replace found nothing, no topic has the page that rename was given, spell,\n"
              "check or verify found something, convert or export-topics lost something, or with\n"
              "--strict anything was skipped, in conflict, damaged or warned of; 2 wrong usage.\n";
}

bool knows(const BatchCommand& command, std::string_view option) {
    std::istringstream known{std::string(command.options)};
    const std::istream_iterator<std::string> begin(known);
    return std::find(begin, {}, option) != std::istream_iterator<std::string>();
}

/// Sorts a command's arguments into words and options; what is wrong with them, if anything is.
std::string parse(const BatchCommand& command, const Arguments& arguments, CommandLine& line) {
    bool wordsOnly = false; // behind "--"
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--" && !wordsOnly) {
            wordsOnly = true;
        } else if (wordsOnly || !argument->starts_with("--")) {
            line.words.push_back(*argument);
        } else if (!argument->ends_with('=') && knows(command, *argument)) {
            line.options[*argument];
        } else if (const std::size_t equals = argument->find('=');
                   equals != std::string::npos && knows(command, argument->substr(0, equals + 1))) {
            line.options[argument->substr(0, equals)] = argument->substr(equals + 1);
        } else if (knows(command, *argument + '=') && argument + 1 != arguments.end()) {
            const std::string& option = *argument;
            line.options[option] = *++argument;
        } else {
            return std::string(command.name) + " has no option \"" + *argument + "\"";
        }
    }
    const bool fits = line.size() >= command.minWords && line.size() <= command.maxWords;
    return fits ? std::string() : std::string(command.name) + " expects " + command.parameters;
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
        session.console.out() << "topicsmith-batch " << platform::version << '\n';
        return exitDone;
    }
    const auto commands = batchCommands();
    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [&name](const BatchCommand& c) { return name == c.name; });
    if (command == commands.end()) {
        return usageError(session, "unknown command \"" + name + "\"");
    }
    CommandLine line;
    const Arguments rest(arguments.begin() + 1, arguments.end());
    if (const std::string problem = parse(*command, rest, line); !problem.empty()) {
        return usageError(session, problem);
    }
    return command->run(session, line);
}

} // namespace

ExitCode usageError(BatchSession& session, const std::string& problem) {
    session.console.err() << session.program << ": " << problem << "\n\n";
    printUsage(session.console.err());
    return exitUsage;
}

int numberFrom(std::string_view argument) {
    int number = 0;
    const char* end = argument.data() + argument.size();
    const auto [rest, error] = std::from_chars(argument.data(), end, number);
    return error == std::errc() && rest == end && number > 0 ? number : 0;
}

ExitCode runBatch(BatchSession& session, const Arguments& arguments) {
    const ExitCode code = runCommand(session, arguments);
    if (!session.console.delivered()) {
        session.console.err() << session.program << ": the output could not be written\n";
        return code == exitDone ? exitFailed : code;
    }
    return code;
}

} // namespace batch
