#include "batch/BatchHelp.h"

#include <algorithm>

#include "help/HelpCheck.h"

namespace batch {

namespace {

/// Names in a foreign file may hold anything.
std::string onOneLine(std::string text) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    };
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

} // namespace

ExitCode verify(BatchSession& session, const CommandLine& arguments) {
    const std::filesystem::path help = arguments.path(0);
    const auto faults = arguments.has("--against")
                            ? help::checkHelp(help, arguments.pathValue("--against"))
                            : help::checkHelp(help);
    if (!faults) {
        session.console.failure("Verify", help, "cannot be read as compiled help");
        return exitFailed;
    }
    for (const std::string& fault : *faults) {
        session.console.out() << onOneLine(fault) << '\n';
    }
    return faults->empty() ? exitDone : exitFailed;
}

} // namespace batch
