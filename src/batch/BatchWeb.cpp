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
    const fs::path folder = platform::fullPath(arguments.path(1));
    const auto list = std::make_shared<web::SiteList>(folder); // takes as long as the project
    model::Project project;
    if (!loadWhole(session, arguments.path(0), project)
        || refuseEmpty(session, project, webTitle)) {
        return exitFailed;
    }
    if (const auto fault = web::siteFolderFault(folder, project)) {
        session.console.failure(webTitle, fault->path, fault->reason);
        return exitFailed;
    }
    const web::SiteReport report =
        web::generateSite(project, {folder, session.programFolder, arguments.has("--clean"), list});
    session.console.result(report.text);
    session.console.failures(webTitle, report.failures);
    return report.failures.empty() ? exitDone : exitFailed;
}

} // namespace batch
