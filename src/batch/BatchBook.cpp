#include "batch/BatchBook.h"

#include "batch/BatchGenerate.h"
#include "batch/BatchProject.h"
#include "book/Epub.h"

namespace batch {

ExitCode makeEpub(BatchSession& session, const CommandLine& arguments) {
    constexpr const char* title = "Generate EPUB";
    std::filesystem::path output = arguments.path(1);
    model::Project project;
    if (!loadWhole(session, arguments.path(0), project) || refuseEmpty(session, project, title)
        || !prepareOutput(session, title, "epub", project.projectPath(), output)) {
        return exitFailed;
    }
    const book::BookOutcome outcome =
        book::writeEpub(project, output, session.programFolder, session.sourceTime);
    for (const text::Text& line : book::noteLines(outcome.notes, project)) {
        session.console.message({line, title});
    }
    session.console.failures(title, outcome.failures);
    return outcome.failures.empty() ? exitDone : exitFailed;
}

} // namespace batch
