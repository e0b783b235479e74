#include "app/WebSiteCommand.h"

#include "import/ImportOutcome.h"
#include "text/Address.h"
#include "text/Path.h"
#include "ui/WaitCursor.h"
#include "web/WebSite.h"

namespace app {

namespace fs = std::filesystem;
using ui::Prompter;

namespace {

constexpr const char* title = "Generate Web Site";

} // namespace

WebSiteCommand::WebSiteCommand(CommandHost& host, const model::Project& project,
                               const ProjectSession& session, ui::Settings& settings,
                               GenerateCommands& generation, LastReport& lastReport,
                               fs::path programFolder)
    : host_(host), project_(project), session_(session), places_(settings, "Web Site", "Folder"),
      generation_(generation), lastReport_(lastReport), programFolder_(std::move(programFolder)) {}

/// Empty when the author cancelled.
fs::path WebSiteCommand::folder(bool ask) {
    return places_.choose(project_.projectPath(), host_.window(), ask,
                          [this](const fs::path& last) {
                              return ui::FileQuestion{ui::FileQuestion::Kind::folder,
                                                      "Folder for the Web Site",
                                                      {},
                                                      1,
                                                      last.empty() ? session_.folder() : last,
                                                      {}};
                          });
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
    places_.remember(project_.projectPath(), folder);
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
