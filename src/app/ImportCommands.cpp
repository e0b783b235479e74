#include "app/ImportCommands.h"

#include "app/FileKind.h"
#include "app/StatusLine.h"
#include "import/PageSource.h"
#include "import/TextImport.h"
#include "import/VbImport.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "ui/WaitCursor.h"

namespace app {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;
using ui::Prompter;

namespace {

constexpr const char* section = "Import";
constexpr const char* key = "File Path";

constexpr const char* topicsFilter = "Topicsmith Project Files (*.tsp)|*.tsp|All Files (*.*)|*.*";

} // namespace

ImportCommands::ImportCommands(CommandHost& host, model::Project& project, ProjectSession& session,
                               ui::Settings& settings, LastReport& lastReport)
    : host_(host), project_(project), session_(session), settings_(settings),
      lastReport_(lastReport), helpImport_(host, project, session) {}

fs::path ImportCommands::folder() const {
    const fs::path folder = settings_.path(section, key);
    return folder.empty() ? session_.lastFolder() : folder;
}

void ImportCommands::rememberFolder(const fs::path& file) {
    settings_.setPath(section, key, file.parent_path());
}

/// The file's default extension is that of the pattern.
std::vector<fs::path> ImportCommands::choose(ui::FileQuestion::Kind kind, TextView title,
                                             const char* pattern, const char* filter) {
    std::vector<fs::path> files =
        Prompter::current().chooseFiles(&host_.window(), {kind, Text(title), filter, 1, folder(),
                                                          pattern, Text(pattern).substr(2)});
    for (fs::path& file : files) {
        file = platform::fullPath(file);
    }
    return files;
}

std::optional<fs::path> ImportCommands::chooseFile(TextView title, const char* pattern,
                                                   const char* filter) {
    const auto files = choose(ui::FileQuestion::Kind::open, title, pattern, filter);
    return files.empty() ? std::nullopt : std::optional(files.front());
}

std::vector<fs::path> ImportCommands::chooseFiles(TextView title, const char* pattern,
                                                  const char* filter) {
    auto files = choose(ui::FileQuestion::Kind::openSeveral, title, pattern, filter);
    if (!files.empty()) {
        rememberFolder(files.front());
    }
    return files;
}

void ImportCommands::importText() {
    host_.carryOut({}, [this] {
        if (const auto file = chooseFile(importer::textImportTitle, "*.txt",
                                         "Text Files (*.txt)|*.txt|All Files (*.*)|*.*")) {
            importTextFile(*file);
        }
    });
}

void ImportCommands::importVbProject() {
    host_.carryOut({}, [this] {
        if (const auto file = chooseFile(importer::vbImportTitle, "*.vbp",
                                         "VB Project Files (*.vbp)|*.vbp|All Files (*.*)|*.*")) {
            importVbForms(*file);
        }
    });
}

void ImportCommands::importTopics() {
    host_.carryOut({}, [this] {
        if (const auto file = chooseFile(importer::topicImportTitle, "*.tsp", topicsFilter)) {
            openDialog(*file);
        }
    });
}

void ImportCommands::importHelp() {
    host_.carryOut({}, [this] {
        const auto files = chooseFiles(importer::helpImportTitle, "*.chm",
                                       "Help and Workshop Projects (*.chm;*.hhp)|*.chm;*.hhp|"
                                       "All Files (*.*)|*.*");
        if (!files.empty()) {
            helpImport_.open(files, {});
        }
    });
}

void ImportCommands::importPages() {
    host_.carryOut({}, [this] {
        const auto files = chooseFiles(importer::pageImportTitle, "*.md",
                                       "Markdown and HTML (*.md;*.markdown;*.htm;*.html)|"
                                       "*.md;*.markdown;*.mkd;*.mdown;*.htm;*.html;*.xhtml|"
                                       "All Files (*.*)|*.*");
        if (!files.empty()) {
            helpImport_.open({}, files);
        }
    });
}

void ImportCommands::openDialog(const fs::path& file) {
    rememberFolder(file);
    dialog_ = std::make_unique<importer::frmImport>(host_.window(), project_, file);
    dialog_->Closed.connect([this] { ui::Window::discard(std::move(dialog_)); });
    dialog_->Imported.connect([this](const importer::ImportOutcome& outcome) {
        finish(outcome);
        host_.updateCommands();
    });
    dialog_->show();
    host_.status().setFailure(Trouble::input, dialog_->fill());
}

void ImportCommands::importTextFile(const fs::path& file) {
    importer::ImportOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = importer::importText(project_, file);
    }
    if (!outcome.readError && !project_.outline().empty()) {
        host_.showTopic(1);
    }
    finish(outcome);
}

void ImportCommands::importVbFile(const fs::path& file) {
    importer::ImportOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = importer::importVbProject(project_, file);
    }
    finish(outcome);
}

/// After the author's choice, where there is one.
void ImportCommands::importVbForms(const fs::path& file) {
    const importer::VbProject source = importer::readVbProject(file, project_.options().codePage());
    if (source.readError || source.forms.empty()) {
        importVbFile(file);
        return;
    }
    const auto wanted = importer::frmVbImport(host_.window(), source, project_).choose();
    if (wanted) {
        finish(importer::importVbForms(project_, source,
                                       [&wanted](std::size_t form) { return (*wanted)[form]; }));
    }
}

void ImportCommands::finish(const importer::ImportOutcome& outcome) {
    if (outcome.message) {
        Prompter::current().tell(&host_.window(), *outcome.message);
    }
    host_.status().setFailure(Trouble::input, outcome.readError);
    if (!outcome.readError) {
        host_.status().notice(summary(outcome));
    }
    if (!outcome.skipped.empty()) {
        lastReport_.show("Import Report", ui::mainWindowHelp, importer::report(outcome));
    }
}

bool ImportCommands::takes(const fs::path& file) {
    return hasExtension(file, ".txt") || hasExtension(file, ".vbp") || importer::isPageFile(file)
           || HelpImportCommand::takes(file);
}

void ImportCommands::importDropped(const std::vector<fs::path>& files) {
    std::vector<fs::path> pages;
    std::vector<fs::path> helps;
    for (const fs::path& each : files) {
        const fs::path file = platform::fullPath(each);
        if (importer::isPageFile(file)) {
            pages.push_back(file);
        } else if (HelpImportCommand::takes(file)) {
            helps.push_back(file);
        } else if (takes(file)) {
            host_.carryOut({}, [this, &file] {
                hasExtension(file, ".txt") ? importTextFile(file) : importVbFile(file);
            });
        }
    }
    if (!helps.empty() || !pages.empty()) {
        host_.carryOut({}, [this, &helps, &pages] { helpImport_.open(helps, pages); });
    }
}

} // namespace app
