#include "app/WebSiteCommand.h"

#include "import/ImportOutcome.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/Path.h"
#include "ui/WaitCursor.h"
#include "web/WebSite.h"

namespace app {

namespace fs = std::filesystem;
using ui::Prompter;

namespace {

constexpr const char* title = "Generate Web Site";
constexpr const char* section = "Web Site";

} // namespace

WebSiteCommand::WebSiteCommand(CommandHost& host, const model::Project& project,
                               const ProjectSession& session, ui::Settings& settings,
                               GenerateCommands& generation, LastReport& lastReport,
                               fs::path programFolder)
    : host_(host), project_(project), session_(session), settings_(settings),
      generation_(generation), lastReport_(lastReport), programFolder_(std::move(programFolder)) {}

/// Where the project's site went last; empty for one that has none.
fs::path WebSiteCommand::lastFolder() const {
    const fs::path project = settings_.path(section, "Project");
    return !project.empty() && project == project_.projectPath() ? settings_.path(section, "Folder")
                                                                 : fs::path();
}

/// Empty when the author cancelled.
fs::path WebSiteCommand::folder(bool ask) {
    fs::path last = lastFolder();
    if (!ask && !last.empty()) {
        return last;
    }
    const auto chosen =
        Prompter::current().chooseFile(&host_.window(), {ui::FileQuestion::Kind::folder,
                                                         "Folder for the Web Site",
                                                         {},
                                                         1,
                                                         last.empty() ? session_.folder() : last,
                                                         {}});
    return chosen ? platform::fullPath(*chosen) : fs::path();
}

void WebSiteCommand::generate(bool ask) {
    host_.carryOut(generation_.precondition(title), [this, ask] {
        const fs::path site = folder(ask);
        if (!site.empty() && !generation_.refuses(web::siteFolderFault(site, project_), title)) {
            generateInto(site);
        }
    });
}

void WebSiteCommand::generateInto(const fs::path& folder) {
    web::SiteReport report;
    {
        const ui::WaitCursor busy;
        report = web::generateSite(project_, {folder, programFolder_});
    }
    settings_.setPath(section, "Project", project_.projectPath());
    settings_.setPath(section, "Folder", folder);
    if (!report.failures.empty()) {
        text::append(report.text, text::lineBreak, text::lineBreak,
                     "Not written:", text::lineBreak);
        importer::appendLines(report.text, report.failures);
    }
    lastReport_.show(title, ui::webSiteHelp, report.text);
    const fs::path front = web::frontPage(folder);
    const ui::Answer answer = Prompter::current().ask(
        &host_.window(),
        {"The web site is in " + text::displayText(folder) + ".", title, ui::Buttons::yesNo,
         ui::QuestionIcon::information, "&Open in Browser", "&Close"});
    if (answer == ui::Answer::yes) {
        Prompter::current().openAddress(text::fileAddress(text::displayText(front)));
    }
}

} // namespace app
