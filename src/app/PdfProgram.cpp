#include "app/PdfProgram.h"

#include "app/PdfMaker.h"
#include "batch/BatchGenerate.h"
#include "batch/BatchProject.h"
#include "batch/BatchStart.h"
#include "platform/Version.h"
#include "ui/Application.h"

namespace app {

namespace {

constexpr const char* title = "Generate PDF";

int makePdf(batch::BatchSession& session, const batch::Arguments& arguments) {
    constexpr std::size_t expected = 3;
    if (arguments.size() != expected) {
        session.console.err() << session.program << ": --pdf expects PROJECT.tsp OUT.pdf\n";
        return batch::exitUsage;
    }
    std::filesystem::path output = platform::pathFromUtf8(arguments[2]);
    model::Project project;
    if (!loadWhole(session, platform::pathFromUtf8(arguments[1]), project)
        || refuseEmpty(session, project, title)
        || !prepareOutput(session, title, "pdf", project.projectPath(), output)) {
        return batch::exitFailed;
    }
    const book::BookOutcome outcome = writePdf(project, output, session.programFolder);
    for (const text::Text& line : book::noteLines(outcome.notes, project)) {
        session.console.message({line, title});
    }
    session.console.failures(title, outcome.failures);
    return outcome.failures.empty() ? batch::exitDone : batch::exitFailed;
}

} // namespace

int runPdfProgram(int argc, char* argv[]) {
    ui::Application application(argc, argv, "HTML Topicsmith", platform::version, false);
    return batch::startBatch(argc, argv, "topicsmith", batch::exitFailed, makePdf);
}

} // namespace app
