#include "tools/forms/StartSpelling.h"

#include "platform/Automation.h"
#include "tools/WordProcessor.h"
#include "tools/forms/dlgSpelling.h"
#include "ui/Clipboard.h"
#include "ui/Prompter.h"

namespace tools {

namespace {

class SystemClipboard : public TextClipboard {
public:
    void clear() override { clipboard_.clear(); }
    void setText(TextView text) override { clipboard_.setText(text); }
    Text text() const override { return clipboard_.text(); }

private:
    ui::Clipboard clipboard_;
};

} // namespace

std::unique_ptr<SpellChecker> startSpelling(ui::Window& owner, SpellingScope scope) {
    if (auto wordProcessor =
            WordProcessor::start(platform::createAutomation, std::make_unique<SystemClipboard>())) {
        return wordProcessor;
    }
    return dlgSpelling::create(owner, std::move(scope));
}

void tellOutcome(ui::Window& owner, SpellChecker::Outcome outcome, SpellChecker* checker) {
    using Outcome = SpellChecker::Outcome;
    const bool ended = checker != nullptr && checker->finish();
    if (outcome == Outcome::failed || !ended) {
        ui::Prompter::current().tell(&owner,
                                     {"Unable to Run MS Word for Spelling Checker", "Run Error"});
    } else if (outcome == Outcome::checked) {
        ui::Prompter::current().tell(&owner, {"Spell Checking Done", "Topicsmith"});
    }
}

} // namespace tools
