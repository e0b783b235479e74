#include "app/SpellCommand.h"

#include "text/TextLines.h"
#include "tools/Dictionary.h"
#include "tools/forms/StartSpelling.h"

namespace app {

using tools::SpellChecker;

SpellCommand::SpellCommand(CommandHost& host, model::Project& project, TopicEditor& editor,
                           ui::Settings& settings, std::filesystem::path programFolder)
    : host_(host), project_(project), editor_(editor), settings_(settings),
      programFolder_(std::move(programFolder)) {}

void SpellCommand::checkAll() {
    host_.carryOut({EditorFate::isClosed}, [this] {
        if (project_.outline().empty()) {
            return;
        }
        ui::Window& window = host_.window();
        const auto checker =
            tools::startSpelling(window, {settings_, tools::dictionaryFolders(programFolder_),
                                          project_.options().languageTag});
        const auto outcome =
            checker == nullptr ? SpellChecker::Outcome::failed : checkTopics(*checker);
        editor_.forgetWords();
        tools::tellOutcome(window, outcome, checker.get());
    });
}

/// Every topic becomes the current one while it is corrected: the rule for letters is about that.
SpellChecker::Outcome SpellCommand::checkTopics(SpellChecker& checker) {
    const model::UndoStep step(project_, "Spell Check All");
    auto outcome = SpellChecker::Outcome::checked;
    const int current = project_.currentIndex();
    for (int position = 1;
         position <= project_.outline().count() && outcome == SpellChecker::Outcome::checked;
         ++position) {
        outcome = checkTopic(checker, position);
    }
    project_.setCurrentIndex(current);
    return outcome;
}

SpellChecker::Outcome SpellCommand::checkTopic(SpellChecker& checker, int position) {
    using model::Topic;
    constexpr std::pair<text::Text Topic::*, const char*> fields[] = {
        {&Topic::title, "title"},
        {&Topic::shortDescription, "short description"},
        {&Topic::body, "text"}};
    for (const auto& [field, name] : fields) {
        const text::Text& written = project_.outline().at(position).*field;
        if (written.empty()) {
            continue;
        }
        const text::Text before = text::withLineBreaks(written); // as it comes back
        text::Text text = before;
        const text::Text place = project_.outline().at(position).title + " (" + name + ')';
        const SpellChecker::Outcome outcome = checker.check(text, place);
        if (text != before) {
            project_.setCurrentIndex(position);
            project_.setField(position, field, text);
            project_.setField(position, &Topic::status, "C");
            project_.markChanged(model::statusChanged);
        }
        if (outcome != SpellChecker::Outcome::checked) {
            return outcome;
        }
    }
    return SpellChecker::Outcome::checked;
}

} // namespace app
