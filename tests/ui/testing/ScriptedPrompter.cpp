#include <gtest/gtest.h>
#include <sstream>

#include "text/CodePage.h"
#include "ui/testing/Driver.h"

namespace ui::testing {

namespace {

std::string described(const MessageBox& box) {
    std::ostringstream text;
    text << "message \"" << box.text << "\", title \"" << box.title << "\", buttons "
         << static_cast<int>(box.buttons) << ", icon " << static_cast<int>(box.icon);
    for (const Text& words : {box.yes, box.no, box.cancel}) {
        text << (words.empty() ? "" : ", \"" + words + '"');
    }
    return text.str();
}

std::string described(const FileQuestion& question) {
    std::ostringstream text;
    constexpr const char* kinds[] = {"open", "open several", "save", "folder"};
    text << kinds[static_cast<std::size_t>(question.kind)] << " dialog \"" << question.title
         << "\", filter \"" << question.filter << "\" " << question.filterIndex << ", folder "
         << question.folder << ", name " << question.fileName << ", extension \""
         << question.defaultExtension << '"';
    return text.str();
}

} // namespace

ScriptedPrompter::ScriptedPrompter() {
    use(this);
}

ScriptedPrompter::~ScriptedPrompter() {
    use(nullptr);
    verify();
}

void ScriptedPrompter::expect(MessageBox box, Answer answer) {
    steps_.push_back({std::move(box), answer, {}, {}});
}

void ScriptedPrompter::expect(FileQuestion question, std::optional<std::filesystem::path> answer) {
    expect(std::move(question),
           answer ? std::vector{std::move(*answer)} : std::vector<std::filesystem::path>());
}

void ScriptedPrompter::expect(FileQuestion question, std::vector<std::filesystem::path> answer) {
    steps_.push_back({{}, Answer::ok, std::move(question), std::move(answer)});
}

void ScriptedPrompter::verify() {
    for (const Step& step : steps_) {
        ADD_FAILURE() << "not asked: "
                      << (step.box ? described(*step.box) : described(*step.question));
    }
    steps_.clear();
}

Answer ScriptedPrompter::ask(Window* /*window*/, const MessageBox& box) {
    if (steps_.empty() || steps_.front().box != box) {
        ADD_FAILURE() << "unforeseen " << described(box);
        return box.buttons == Buttons::ok ? Answer::ok : Answer::no;
    }
    const Answer answer = steps_.front().answer;
    steps_.pop_front();
    Window::letEventsRun(); // as long as a real box stands
    return answer;
}

std::vector<std::filesystem::path> ScriptedPrompter::chooseFiles(Window* /*window*/,
                                                                 const FileQuestion& question) {
    if (steps_.empty() || steps_.front().question != question) {
        ADD_FAILURE() << "unforeseen " << described(question);
        return {};
    }
    auto files = std::move(steps_.front().files);
    steps_.pop_front();
    Window::letEventsRun();
    return files;
}

} // namespace ui::testing
