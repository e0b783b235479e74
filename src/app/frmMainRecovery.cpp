#include "app/frmMain.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"
#include "text/CodePage.h"

// Unsaved work that outlives the program.
namespace app {

namespace {

// In milliseconds. Whoever types without a pause is kept now and then, too.
constexpr int pause = 5000;
constexpr std::chrono::milliseconds longestWait(15000);

/// Whether the project's own file holds it after all.
bool isSaved(const Recovery::Work& work) {
    std::string bytes;
    return !platform::readFile(work.path, bytes) && bytes == work.project;
}

} // namespace

void frmMain::noteWork() {
    if (!keepsWork_) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (!tmrRecovery.isRunning()) {
        oldestWork_ = now;
    }
    if (now - oldestWork_ < longestWait) {
        tmrRecovery.start(pause);
    }
}

bool frmMain::hasEdits() const {
    return editor_ != nullptr && editor_->isVisible() && editor_->changed();
}

void frmMain::keepForRecovery() {
    if (!project_.dataChanged() && !hasEdits()) {
        recovery_.forget();
        setTrouble(Trouble::recovery, {});
        return;
    }
    // As it would be if all was saved now, the letters too.
    model::Project work;
    work.replace(project_.outline(), project_.options(), project_.projectPath());
    if (hasEdits()) {
        work.setCurrentIndex(project_.currentIndex());
        editor_->storeIn(work);
    }
    const std::error_code error = recovery_.keep({formatProject(work.outline(), work.options()),
                                                  work.projectPath(), project_.currentIndex()});
    setTrouble(Trouble::recovery, error ? "Unsaved work cannot be kept for a restart: "
                                              + text::fromUtf8(error.message())
                                        : text::Text());
    if (error) {
        noteWork(); // to try again
    }
}

/// Yes, No, or Cancel for another time. Asks only where there is something to decide.
ui::Answer frmMain::decideRecovery(const Recovery::Work& work, const model::ParsedProject& parsed) {
    if (isSaved(work)) {
        return ui::Answer::no;
    }
    if (parsed.stop != model::LoadStop::none) {
        return ui::Answer::cancel;
    }
    text::Text text = "The program ended before the changes of this project were saved:\n"
                      + text::displayText(work.path);
    if (work.topic >= 1 && work.topic <= parsed.outline.count()) {
        const text::Text& title = parsed.outline.at(work.topic).title;
        text += "\nThe last topic was '" + (title.empty() ? "<No Title>" : title) + "'.";
    }
    text += "\nDo you want them back?";
    if (recovery_.isOlderThan(work.path)) {
        text += "\nThe project has been saved since then.";
    }
    return ui::Prompter::current().ask(this, {text, "HTML Topicsmith", ui::Buttons::yesNoCancel,
                                              ui::QuestionIcon::question, "&Bring Back", "&Discard",
                                              "Ask &Later"});
}

bool frmMain::offerRecovery() {
    bool recovered = false;
    while (!recovered) {
        const auto work = recovery_.leftBehind();
        if (!work) {
            break;
        }
        model::ParsedProject parsed = model::parseProject(work->project);
        switch (decideRecovery(*work, parsed)) {
        case ui::Answer::yes:
            recovery_.adopt();
            project_.replace(std::move(parsed.outline), std::move(parsed.options), work->path);
            if (work->topic <= project_.outline().count()) {
                project_.setCurrentIndex(work->topic);
            }
            session_.adopt(work->path);
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
    keepsWork_ = true; // not before: what is asked about must not be forgotten
    return recovered;
}

} // namespace app
