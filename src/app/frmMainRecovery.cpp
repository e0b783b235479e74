#include "app/frmMain.h"
#include "model/CodePage.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"

// Unsaved work that outlives the program.
namespace app {

namespace {

constexpr int interval = 20000; // milliseconds

/// Whether the project's own file holds it after all.
bool isSaved(const Recovery::Work& work) {
    std::string bytes;
    return !platform::readFile(work.path, bytes) && bytes == work.project;
}

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
    // As it would be if all was saved now, the letters too.
    model::Project work;
    work.replace(project_.outline(), project_.options(), project_.projectPath());
    if (hasEdits()) {
        work.setCurrentIndex(project_.currentIndex());
        editor_->storeIn(work);
    }
    const std::error_code error =
        recovery_.keep({formatProject(work.outline(), work.options()), work.projectPath()});
    if (error && !keepingFailed_) {
        keepingFailed_ = true;
        notice("Unsaved work cannot be kept for a restart: " + model::fromUtf8(error.message()));
    }
}

/// Yes, No, or Cancel for another time. Asks only where there is something to decide.
ui::Answer frmMain::decideRecovery(const Recovery::Work& work, bool isWhole) {
    if (isSaved(work)) {
        return ui::Answer::no;
    }
    if (!isWhole) {
        return ui::Answer::cancel;
    }
    model::Text text = "The program ended before the changes of this project were saved:\n"
                       + model::displayText(work.path) + "\nDo you want them back?";
    if (recovery_.isOlderThan(work.path)) {
        text += "\nThe project has been saved since then.";
    }
    return ui::Prompter::current().ask(
        this, {text, "HTML Topicsmith", ui::Buttons::yesNoCancel, ui::QuestionIcon::question});
}

bool frmMain::offerRecovery() {
    bool recovered = false;
    while (!recovered) {
        const auto work = recovery_.leftBehind();
        if (!work) {
            break;
        }
        model::ParsedProject parsed = model::parseProject(work->project);
        switch (decideRecovery(*work, parsed.stop == model::LoadStop::none)) {
        case ui::Answer::yes:
            recovery_.adopt();
            project_.replace(std::move(parsed.outline), std::move(parsed.options), work->path);
            files_.adopt(work->path);
            project_.markChanged(model::projectChanged);
            notice("Brought back; not saved yet");
            recovered = true;
            break;
        case ui::Answer::no:
            recovery_.discard();
            break;
        default:
            recovery_.leave();
        }
    }
    tmrRecovery.start(interval); // not before: what is asked about must not be forgotten
    return recovered;
}

} // namespace app
