#include "batch/BatchHelp.h"

#include "help/HelpCheck.h"

namespace batch {

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
        session.console.result(text::oneLine(fault)); // names may hold anything
    }
    return faults->empty() ? exitDone : exitFailed;
}

} // namespace batch
