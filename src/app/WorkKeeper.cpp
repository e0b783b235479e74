#include "app/WorkKeeper.h"

#include "app/StatusLine.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace app {

namespace {

// In milliseconds. Whoever types without a pause is kept now and then, too.
constexpr int pause = 5000;
constexpr std::chrono::milliseconds longestWait(15000);

/// Whether the project's own file holds it after all, as saving would have written it.
bool isSaved(const std::filesystem::path& path, const model::ParsedProject& work) {
    std::string bytes;
    return work.stop == model::LoadStop::none && !platform::readFile(path, bytes)
           && bytes == formatProject(work.outline, work.options).value;
}

} // namespace

WorkKeeper::WorkKeeper(CommandHost& host, model::Project& project, ProjectSession& session,
                       TopicEditor& editor, const std::filesystem::path& folder)
    : host_(host), project_(project), session_(session), editor_(editor), recovery_(folder) {
    UI_ON(tmrRecovery, Tick);
    editor_.Edited.connect([this] { note(); });
}

void WorkKeeper::note() {
    if (!isKeeping_) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (!tmrRecovery.isRunning()) {
        oldest_ = now;
    }
    if (now - oldest_ < longestWait) {
        tmrRecovery.start(pause);
    }
}

void WorkKeeper::keep() {
    if (!project_.dataChanged() && !editor_.hasEdits()) {
        recovery_.forget();
        host_.status().setTrouble(Trouble::recovery, {});
        return;
    }
    // With every character, also those that saving would take away, and the letters of the editor.
    model::Project work;
    work.replace(project_.outline(), project_.options(), project_.projectPath());
    if (editor_.hasEdits()) {
        work.setCurrentIndex(project_.currentIndex());
        editor_.window()->storeIn(work);
    }
    const std::error_code error = recovery_.keep(
        {formatWhole(work.outline(), work.options()), work.projectPath(), project_.currentIndex()});
    host_.status().setTrouble(
        Trouble::recovery,
        error ? "Unsaved work cannot be kept for a restart: " + error.message() : text::Text());
    if (error) {
        note(); // to try again
    }
}

void WorkKeeper::stop() {
    tmrRecovery.stop();
    recovery_.forget();
}

/// Yes, No, or Cancel for another time. Asks only where there is something to decide.
ui::Answer WorkKeeper::decide(const Recovery::Work& work, const model::ParsedProject& parsed) {
    if (isSaved(work.path, parsed)) {
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
    return ui::Prompter::current().ask(
        &host_.window(), {text, "HTML Topicsmith", ui::Buttons::yesNoCancel,
                          ui::QuestionIcon::question, "&Bring Back", "&Discard", "Ask &Later"});
}

void WorkKeeper::bringBack(const Recovery::Work& work, model::ParsedProject parsed) {
    recovery_.adopt();
    project_.replace(std::move(parsed.outline), std::move(parsed.options), work.path);
    if (work.topic <= project_.outline().count()) {
        project_.setCurrentIndex(work.topic);
    }
    session_.adopt(work.path);
    project_.markChanged(model::projectChanged);
    host_.status().notice("Brought back; not saved yet");
}

bool WorkKeeper::offer() {
    bool recovered = false;
    while (!recovered) {
        const auto work = recovery_.leftBehind();
        if (!work) {
            break;
        }
        model::ParsedProject parsed = model::parseProject(work->project);
        switch (decide(*work, parsed)) {
        case ui::Answer::yes:
            bringBack(*work, std::move(parsed));
            recovered = true;
            break;
        case ui::Answer::no:
            recovery_.discard();
            break;
        default:
            recovery_.leave();
        }
    }
    isKeeping_ = true; // not before: what is asked about must not be forgotten
    return recovered;
}

} // namespace app
