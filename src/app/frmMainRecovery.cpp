#include "app/frmMain.h"
#include "model/CodePage.h"
#include "model/ProjectFile.h"

// Unsaved work that outlives the program.
namespace app {

namespace {

constexpr int interval = 20000; // milliseconds

} // namespace

void frmMain::tmrRecovery_Tick() {
    keepForRecovery();
    tmrRecovery.start(interval);
}

bool frmMain::hasEdits() const {
    return editor_ != nullptr && editor_->isVisible() && editor_->changed();
}

void frmMain::keepForRecovery() {
    if (!project_.dataChanged() && !hasEdits()) {
        recovery_.forget();
        return;
    }
    model::TopicOutline outline = project_.outline();
    if (hasEdits()) {
        outline.at(project_.currentIndex()) = editor_->editedTopic();
    }
    recovery_.keep({formatProject(outline, project_.options()), project_.projectPath()});
}

bool frmMain::offerRecovery() {
    tmrRecovery.start(interval);
    const auto work = recovery_.leftBehind();
    if (!work) {
        recovery_.forget(); // whatever there may be
        return false;
    }
    model::ParsedProject parsed = model::parseProject(work->project);
    const model::Text name = model::displayText(work->path.filename());
    if (parsed.stop != model::LoadStop::none
        || ui::Prompter::current().ask(this, {"The program ended before the changes of \"" + name
                                                  + "\" were saved.\nDo you want them back?",
                                              "HTML Topicsmith", ui::Buttons::yesNo,
                                              ui::QuestionIcon::question})
               != ui::Answer::yes) {
        recovery_.forget();
        return false;
    }
    project_.replace(std::move(parsed.outline), std::move(parsed.options), work->path);
    project_.markChanged(model::projectChanged);
    notice("Brought back; not saved yet");
    return true;
}

} // namespace app
