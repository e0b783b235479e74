#include "app/frmMain.h"
#include "generate/GeneratedFile.h"
#include "generate/GenerationRun.h"
#include "generate/WorkshopName.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/CodePage.h"

// Compiled help in the main window.
namespace app {

namespace fs = std::filesystem;
using ui::Prompter;

namespace {

constexpr const char* compileTitle = "Compile Help";
constexpr const char* section = "Compile";

} // namespace

/// Where the project was compiled to last; empty for one that was not.
fs::path frmMain::compiledHelp() const {
    const fs::path project = settings_.path(section, "Project");
    return !project.empty() && project == project_.projectPath() ? settings_.path(section, "Help")
                                                                 : fs::path();
}

std::optional<fs::path> frmMain::chooseCompiledHelp() {
    const fs::path last = compiledHelp();
    const fs::path proposed =
        last.empty()
            ? generate::siblingFile(generate::proposedWorkshopName(project_.projectPath()), "chm")
            : last;
    return Prompter::current().chooseFile(this, {ui::FileQuestion::Kind::save, "Compile Help To",
                                                 "Compiled Help (*.chm)|*.chm|All Files (*.*)|*.*",
                                                 1, session_.folder(), proposed, "chm"});
}

/// Asks for the file where it is not known yet, and otherwise when told so.
void frmMain::compileHelp(bool ask) {
    leaveField();
    if (const auto message = generate::nothingToGenerate(project_, compileTitle)) {
        Prompter::current().tell(this, *message);
        return;
    }
    if (!storeEditor()) {
        return;
    }
    fs::path output = compiledHelp();
    if (ask || output.empty()) {
        const auto chosen = chooseCompiledHelp();
        if (!chosen) {
            return;
        }
        output = platform::fullPath(*chosen);
    }
    fs::path workshopFile = output;
    workshopFile.replace_extension(".hhp");
    if (refused(generate::compiledNameFault(output, project_.projectPath()), compileTitle)
        || !mayGenerateInto(workshopFile, compileTitle)) {
        return;
    }
    compilation_.reset(); // the one before gives way
    const generate::GenerationReport report = generateInto(workshopFile, compileTitle, {});
    if (!report.failures.empty()) { // a help of old pages would look as if all was well
        showReport("Generation Report", ui::reportHelp, report.text);
        return;
    }
    settings_.setPath(section, "Project", project_.projectPath());
    settings_.setPath(section, "Help", output);
    compileFrom(workshopFile, output);
}

void frmMain::compileFrom(const fs::path& workshopFile, const fs::path& output) {
    compile::CompileOptions options;
    options.output = output;
    options.otherFolder = project_.projectPath().parent_path();
    options.title = text::toUtf8(text::oneLine(project_.options().projectName));
    compilation_ = std::make_unique<dlgCompile>(*this, workshopFile, options);
    compilation_->Closed.connect([this] { discard(std::move(compilation_)); });
    compilation_->MessageChosen.connect(
        [this](const workshop::Message& message) { showPlace(message); });
    compilation_->OpenWanted.connect([this](const fs::path& help) { openCompiledHelp(help); });
    compilation_->show();
}

/// The topic of the page to which a message belongs.
void frmMain::showPlace(const workshop::Message& message) {
    const text::Text file = model::pageKey(text::fromUtf8(message.file));
    const std::string folder = std::string("\\") + model::pageFolderName + "\\";
    for (int position = 1; position <= project_.outline().count(); ++position) {
        const text::Text page = folder + model::pageKey(project_.outline().at(position).fileName);
        if (file.ends_with(page)) {
            showTopic(position);
            activate();
            return;
        }
    }
}

/// In our own viewer, at the page of the current topic.
void frmMain::openCompiledHelp(const fs::path& file) {
    if (compiledHelp_ == nullptr || !compiledHelp_->isVisible()) {
        compiledHelp_ = std::make_unique<help::frmHelp>(settings_);
        compiledHelp_->Closed.connect([this] { discard(std::move(compiledHelp_)); });
    }
    if (!compiledHelp_->openBook(file)) {
        compiledHelp_.reset();
        Prompter::current().tell(this, help::unreadableMessage(file));
        return;
    }
    compiledHelp_->show();
    if (hasTopic()) {
        const model::Topic& topic = project_.outline().at(project_.currentIndex());
        compiledHelp_->showPage("/" + std::string(model::pageFolderName) + "/"
                                + text::toUtf8(topic.fileName));
    }
    compiledHelp_->activate();
}

} // namespace app
