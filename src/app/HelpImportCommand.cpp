#include "app/HelpImportCommand.h"

#include <algorithm>
#include <utility>

#include "app/FileKind.h"
#include "app/StatusLine.h"
#include "import/PageSource.h"
#include "text/Path.h"
#include "ui/WaitCursor.h"

namespace app {

namespace fs = std::filesystem;
using text::Text;
using ui::Prompter;

HelpImportCommand::HelpImportCommand(CommandHost& host, model::Project& project,
                                     ProjectSession& session)
    : host_(host), project_(project), session_(session) {}

bool HelpImportCommand::takes(const fs::path& file) {
    return hasExtension(file, ".chm") || hasExtension(file, ".hhp");
}

void HelpImportCommand::open(const std::vector<fs::path>& helps, std::vector<fs::path> pages) {
    waitingHelps_.assign(helps.begin(), helps.end());
    waitingPages_ = std::move(pages);
    std::sort(waitingPages_.begin(), waitingPages_.end()); // they come as they were selected
    openNext();
}

/// Unless something of the one before is still to be read.
void HelpImportCommand::goOn() {
    if (dialog_ == nullptr && report_ == nullptr) {
        openNext();
    }
}

void HelpImportCommand::openNext() {
    while (!waitingHelps_.empty()) {
        const fs::path file = std::move(waitingHelps_.front());
        waitingHelps_.pop_front();
        if (auto source = openHelp(file)) {
            choose(std::move(source), ui::helpImportHelp);
            return;
        }
    }
    if (!waitingPages_.empty()) {
        if (auto source = openPages()) {
            choose(std::move(source), ui::pageImportHelp);
        }
    }
}

std::unique_ptr<importer::HelpSource> HelpImportCommand::openHelp(const fs::path& file) {
    Text problem;
    std::unique_ptr<importer::HelpSource> source;
    {
        const ui::WaitCursor busy;
        source = importer::HelpSource::open(file, problem);
    }
    if (source == nullptr) {
        Prompter::current().tell(&host_.window(),
                                 {text::displayText(file.filename()) + ": " + problem,
                                  Text(importer::helpImportTitle), text::MessageIcon::exclamation});
    }
    return source;
}

std::unique_ptr<importer::HelpSource> HelpImportCommand::openPages() {
    const std::vector<fs::path> pages = std::exchange(waitingPages_, {});
    Text problem;
    std::unique_ptr<importer::HelpSource> source;
    {
        const ui::WaitCursor busy;
        source = importer::openPages(pages, project_.options().codePage().number(), problem);
    }
    if (source == nullptr) {
        Prompter::current().tell(&host_.window(), {problem, Text(importer::pageImportTitle),
                                                   text::MessageIcon::exclamation});
    }
    return source;
}

void HelpImportCommand::choose(std::unique_ptr<importer::HelpSource> source, ui::HelpContext help) {
    dialog_ = std::make_unique<importer::frmHelpImport>(
        host_.window(), std::move(source),
        importer::frmHelpImport::Target{model::TopicOutline::maxTopics - project_.outline().count(),
                                        [this] { return std::max(project_.currentIndex(), 0); }});
    dialog_->setHelpContext(help);
    dialog_->Closed.connect([this] {
        ui::Window::discard(std::move(dialog_));
        goOn();
    });
    dialog_->Chosen.connect([this](const importer::HelpImportChoice& choice) { import(choice); });
    dialog_->show();
}

/// Pictures go into the project's folder, so it has to have one.
bool HelpImportCommand::hasFolder() {
    if (project_.hasFile()) {
        return true;
    }
    if (!project_.outline().empty()) {
        return session_.saveProject(true);
    }
    const auto file = Prompter::current().chooseFile(
        &host_.window(), {ui::FileQuestion::Kind::save, "Where the Imported Project Is to Be",
                          "Topicsmith Project Files (*.tsp)|*.tsp|All Files (*.*)|*.*", 1,
                          session_.folder(), model::Project::newFileName, "tsp"});
    if (file) {
        project_.setProjectPath(platform::fullPath(*file));
        project_.origin() = {platform::FileState(project_.projectPath()), {}};
    }
    return file.has_value();
}

void HelpImportCommand::import(const importer::HelpImportChoice& choice) {
    host_.carryOut({EditorFate::isClosed}, [&] {
        if (!hasFolder()) {
            return;
        }
        importer::HelpImportOutcome outcome;
        {
            const ui::WaitCursor busy;
            outcome = importHelp(project_, dialog_->source(), dialog_->plan(), choice);
        }
        const bool isHelp = dialog_->source().hasNavigation;
        dialog_->close();
        host_.status().notice(summary(outcome));
        if (isHelp || !outcome.notes.empty() || !outcome.failures.empty()) {
            showReport(outcome);
        }
    });
}

void HelpImportCommand::showReport(const importer::HelpImportOutcome& outcome) {
    report_ =
        std::make_unique<importer::frmImportReport>(host_.window(), outcome, project_.outline());
    report_->Closed.connect([this] {
        ui::Window::discard(std::move(report_));
        goOn();
    });
    report_->TopicWanted.connect([this](int position) {
        if (position <= project_.outline().count()) {
            host_.showTopic(position);
        }
    });
    report_->show();
}

} // namespace app
