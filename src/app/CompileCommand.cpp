#include "app/CompileCommand.h"

#include "generate/GeneratedFile.h"
#include "generate/WorkshopName.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace app {

namespace fs = std::filesystem;
using ui::Prompter;

namespace {

constexpr const char* title = "Compile Help";

} // namespace

CompileCommand::CompileCommand(CommandHost& host, const model::Project& project,
                               const ProjectSession& session, ui::Settings& settings,
                               GenerateCommands& generation, LastReport& lastReport)
    : host_(host), project_(project), session_(session), settings_(settings),
      places_(settings, "Compile", "Help"), generation_(generation), lastReport_(lastReport) {}

/// Empty when the author cancelled.
fs::path CompileCommand::output(bool ask) {
    return places_.choose(
        project_.projectPath(), host_.window(), ask, [this](const fs::path& last) {
            return ui::FileQuestion{ui::FileQuestion::Kind::save,
                                    "Compile Help To",
                                    "Compiled Help (*.chm)|*.chm|All Files (*.*)|*.*",
                                    1,
                                    session_.folder(),
                                    last.empty() ? generate::siblingFile(
                                        generate::proposedWorkshopName(project_), "chm")
                                                 : last,
                                    "chm"};
        });
}

void CompileCommand::compile(bool ask) {
    host_.carryOut(generation_.precondition(title), [this, ask] {
        if (const fs::path file = output(ask); !file.empty()) {
            compileTo(file);
        }
    });
}

void CompileCommand::compileTo(const fs::path& output) {
    const fs::path workshopFile = generate::workshopFileFor(output);
    if (generation_.refuses(generate::compiledNameFault(output, project_.projectPath()), title)
        || !generation_.mayGenerateInto(workshopFile, title)) {
        return;
    }
    compilation_.reset(); // the one before gives way
    const generate::GenerationReport report = generation_.generateInto(workshopFile, title, {});
    if (!report.failures.empty()) { // a help of old pages would look as if all was well
        lastReport_.show("Generation Report", ui::reportHelp, report.text);
        return;
    }
    places_.remember(project_.projectPath(), output);
    start(workshopFile, output);
}

void CompileCommand::start(const fs::path& workshopFile, const fs::path& output) {
    compile::CompileOptions options;
    options.output = output;
    options.setOwnProject(project_.projectPath().parent_path(),
                          text::oneLine(project_.options().projectName));
    compilation_ = std::make_unique<dlgCompile>(host_.window(), workshopFile, options);
    compilation_->Closed.connect([this] { ui::Window::discard(std::move(compilation_)); });
    compilation_->MessageChosen.connect(
        [this](const workshop::Message& message) { showPlace(message); });
    compilation_->OpenWanted.connect([this](const fs::path& help) { openHelp(help); });
    compilation_->show();
}

/// The topic of the page to which a message belongs.
void CompileCommand::showPlace(const workshop::Message& message) {
    const text::Text file = model::pageKey(message.file);
    const std::string folder = std::string("\\") + model::pageFolderName + "\\";
    for (int position = 1; position <= project_.outline().count(); ++position) {
        const text::Text page = folder + model::pageKey(project_.outline().at(position).fileName);
        if (file.ends_with(page)) {
            host_.showTopic(position);
            host_.window().activate();
            return;
        }
    }
}

/// In our own viewer, at the page of the current topic.
void CompileCommand::openHelp(const fs::path& file) {
    if (viewer_ == nullptr || !viewer_->isVisible()) {
        viewer_ = std::make_unique<help::frmHelp>(settings_);
        viewer_->Closed.connect([this] { ui::Window::discard(std::move(viewer_)); });
    }
    if (!viewer_->openBook(file)) {
        viewer_.reset();
        Prompter::current().tell(&host_.window(), help::unreadableMessage(file));
        return;
    }
    viewer_->show();
    if (project_.currentIndex() > 0) {
        const model::Topic& topic = project_.outline().at(project_.currentIndex());
        viewer_->showPage("/" + std::string(model::pageFolderName) + "/" + topic.fileName);
    }
    viewer_->activate();
}

} // namespace app
