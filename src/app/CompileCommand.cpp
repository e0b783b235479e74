#include "app/CompileCommand.h"

#include <algorithm>

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
constexpr const char* section = "Compile";

/// Where a project's help went.
struct KnownPlace {
    fs::path project;
    fs::path help;
};

constexpr int mostPlaces = 20;

/// The first place's keys have no number.
std::string keyOf(const char* name, int slot) {
    return slot == 0 ? name : name + std::to_string(slot + 1);
}

/// The last one first.
std::vector<KnownPlace> knownPlaces(const ui::Settings& settings) {
    std::vector<KnownPlace> places;
    for (int slot = 0; slot < mostPlaces; ++slot) {
        const fs::path project = settings.path(section, keyOf("Project", slot));
        if (project.empty()) {
            break;
        }
        places.push_back({project, settings.path(section, keyOf("Help", slot))});
    }
    return places;
}

void rememberPlace(ui::Settings& settings, KnownPlace place) {
    std::vector<KnownPlace> places = knownPlaces(settings);
    std::erase_if(places,
                  [&place](const KnownPlace& each) { return each.project == place.project; });
    places.insert(places.begin(), std::move(place));
    places.resize(std::min<std::size_t>(places.size(), mostPlaces));
    for (std::size_t i = 0; i < places.size(); ++i) {
        const int slot = static_cast<int>(i);
        settings.setPath(section, keyOf("Project", slot), places[i].project);
        settings.setPath(section, keyOf("Help", slot), places[i].help);
    }
}

} // namespace

CompileCommand::CompileCommand(CommandHost& host, const model::Project& project,
                               const ProjectSession& session, ui::Settings& settings,
                               GenerateCommands& generation, LastReport& lastReport)
    : host_(host), project_(project), session_(session), settings_(settings),
      generation_(generation), lastReport_(lastReport) {}

/// Where the project was compiled to last; empty for one that was not.
fs::path CompileCommand::lastOutput() const {
    for (const KnownPlace& place : knownPlaces(settings_)) {
        if (place.project == project_.projectPath()) {
            return place.help;
        }
    }
    return {};
}

std::optional<fs::path> CompileCommand::chooseOutput() {
    const fs::path last = lastOutput();
    const fs::path proposed =
        last.empty() ? generate::siblingFile(generate::proposedWorkshopName(project_), "chm")
                     : last;
    return Prompter::current().chooseFile(&host_.window(),
                                          {ui::FileQuestion::Kind::save, "Compile Help To",
                                           "Compiled Help (*.chm)|*.chm|All Files (*.*)|*.*", 1,
                                           session_.folder(), proposed, "chm"});
}

/// Empty when the author cancelled.
fs::path CompileCommand::output(bool ask) {
    fs::path last = lastOutput();
    if (!ask && !last.empty()) {
        return last;
    }
    const auto chosen = chooseOutput();
    return chosen ? platform::fullPath(*chosen) : fs::path();
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
    rememberPlace(settings_, {project_.projectPath(), output});
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
