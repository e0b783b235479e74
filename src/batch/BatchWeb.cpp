#include "batch/BatchWeb.h"

#include "batch/BatchGenerate.h"
#include "batch/BatchProject.h"
#include "web/WebSite.h"

namespace batch {

namespace fs = std::filesystem;

namespace {

constexpr const char* webTitle = "Generate Web Site";

} // namespace

ExitCode makeWebSite(BatchSession& session, const CommandLine& arguments) {
    model::Project project;
    if (!loadWhole(session, arguments.path(0), project)
        || refuseEmpty(session, project, webTitle)) {
        return exitFailed;
    }
    const fs::path folder = platform::fullPath(arguments.path(1));
    if (const auto fault = web::siteFolderFault(folder, project)) {
        session.console.failure(webTitle, fault->path, fault->reason);
        return exitFailed;
    }
    const web::SiteReport report =
        web::generateSite(project, {folder, session.programFolder, arguments.has("--clean")});
    session.console.result(report.text);
    session.console.failures(webTitle, report.failures);
    return report.failures.empty() ? exitDone : exitFailed;
}

} // namespace batch
