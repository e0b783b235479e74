#include "batch/BatchCompile.h"

#include "batch/BatchGenerate.h"
#include "batch/BatchProject.h"
#include "compile/Compiler.h"
#include "generate/WorkshopName.h"
#include "text/Path.h"

namespace batch {

namespace fs = std::filesystem;

namespace {

constexpr const char* compileTitle = "Compile Help";

/// As compilers do it, so that editors find the place.
void printMessages(BatchSession& session, const std::vector<workshop::Message>& messages,
                   bool isQuiet) {
    std::string lines; // each piece of output is a call of the system
    for (const workshop::Message& message : messages) {
        if (isQuiet && message.severity == workshop::Severity::note) {
            continue;
        }
        text::append(lines, message.file, ":");
        if (message.line > 0) {
            text::append(lines, std::to_string(message.line), ":");
        }
        text::append(lines, " ", nameOf(message.severity), ": ", message.text, "\n");
    }
    session.console.messages(lines);
}

/// Tells a person at a terminal how far the work is.
compile::Progress progressFor(BatchSession& session) {
    if (!session.isAtTerminal) {
        return {};
    }
    return [&session, shown = std::uint64_t(0)](std::uint64_t done, std::uint64_t total) mutable {
        constexpr std::uint64_t whole = 100;
        const std::uint64_t percent = total == 0 ? whole : done * whole / total;
        if (percent != shown) {
            shown = percent;
            session.console.err() << "\r" << percent << " %" << std::flush;
        }
        if (done == total) {
            session.console.err() << "\r      \r" << std::flush;
        }
    };
}

ExitCode compileWorkshop(BatchSession& session, const fs::path& project,
                         const compile::CompileOptions& options, bool isQuiet) {
    const compile::CompileOutcome outcome = compile::compileProject(project, options);
    printMessages(session, outcome.messages, isQuiet);
    if (!outcome.isWritten) {
        session.console.failure(compileTitle, outcome.output.empty() ? project : outcome.output,
                                "was not compiled");
        return exitFailed;
    }
    if (!isQuiet) {
        session.console.result(text::displayText(outcome.output) + ": "
                               + std::to_string(outcome.files) + " files in "
                               + std::to_string(outcome.size) + " bytes");
    }
    return exitDone;
}

bool isWorkshopProject(const fs::path& path) {
    return text::equalIgnoringCase(platform::utf8FromPath(path.extension()), ".hhp");
}

/// Generates the sources beside the output and compiles them.
ExitCode compileOwn(BatchSession& session, const CommandLine& arguments,
                    compile::CompileOptions& options, bool isQuiet) {
    model::Project project;
    fs::path output = options.output;
    if (!loadForChange(session, arguments.path(0), project)
        || refuseEmpty(session, project, compileTitle)
        || !prepareOutput(session, compileTitle, "chm", project.projectPath(), output)) {
        return exitFailed;
    }
    if (const auto fault = generate::compiledNameFault(output, project.projectPath())) {
        session.console.failure(compileTitle, fault->path, fault->reason);
        return exitFailed;
    }
    const fs::path workshopFile = generate::workshopFileFor(output);
    if (!generateInto(session, project, workshopFile, arguments)) {
        return exitFailed;
    }
    options.output = output;
    options.setOwnProject(project.projectPath().parent_path(),
                          text::oneLine(project.options().projectName));
    return compileWorkshop(session, workshopFile, options, isQuiet);
}

} // namespace

ExitCode compileHelp(BatchSession& session, const CommandLine& arguments) {
    compile::CompileOptions options;
    options.jobs = static_cast<unsigned>(numberFrom(arguments.value("--jobs")));
    if (arguments.has("--jobs") && options.jobs == 0) {
        return usageError(session, "compile expects a number of jobs from 1");
    }
    const bool isQuiet = arguments.has("--quiet");
    options.strict = arguments.has("--strict");
    options.time = session.sourceTime;
    options.progress = isQuiet ? compile::Progress() : progressFor(session);
    if (arguments.size() > 1) {
        options.output = arguments.path(1);
    }
    if (!isWorkshopProject(arguments.path(0))) {
        return arguments.size() > 1 ? compileOwn(session, arguments, options, isQuiet)
                                    : usageError(session, "compile expects an output file");
    }
    if (arguments.size() > 1
        && !prepareOutput(session, compileTitle, "chm", platform::fullPath(arguments.path(0)),
                          options.output)) {
        return exitFailed;
    }
    return compileWorkshop(session, arguments.path(0), options, isQuiet);
}

int runLikeWorkshop(BatchSession& session, const Arguments& arguments) {
    if (arguments.size() != 1 || arguments.front().starts_with("--")) {
        session.console.err() << "Usage: topicsmith-hhc PROJECT.hhp\n";
        return hhcFailed;
    }
    return runBatch(session, {"compile", "--", arguments.front()}) == exitDone ? hhcDone
                                                                               : hhcFailed;
}

} // namespace batch
