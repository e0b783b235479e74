#include "tools/WordProcessor.h"

#include <gtest/gtest.h>

using namespace tools;
using platform::AutomationObject;
using platform::AutomationValue;

namespace {

/// The clipboard, and every call of the other program, in one log.
struct Log {
    std::string calls;
    int failing = -1; ///< the number, from 0, of the call that fails
    int count = 0;

    bool note(const std::string& call) {
        calls += (calls.empty() ? "" : ", ") + call;
        return count++ != failing;
    }
};

class Clipboard : public TextClipboard {
public:
    explicit Clipboard(Log& log) : log_(log) {}
    void clear() override { log_.calls += ", clear"; }
    void setText(TextView text) override { log_.calls += ", set '" + Text(text) + '\''; }
    Text text() const override {
        log_.calls += ", get";
        return "corrected";
    }

private:
    Log& log_;
};

/// Notes what is done to an object of the other program; gives more of them.
class Recorder : public AutomationObject {
public:
    Recorder(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

    std::optional<AutomationValue> get(const char* property) override {
        if (!log_.note(name_ + '.' + property)) {
            return {};
        }
        return property == std::string("Top") ? AutomationValue(120) : object(property);
    }
    bool set(const char* property, const AutomationValue& value) override {
        const bool* flag = std::get_if<bool>(&value);
        return log_.note(name_ + '.' + property + '='
                         + (flag != nullptr ? (*flag ? "true" : "false")
                                            : std::to_string(std::get<int>(value))));
    }
    std::optional<AutomationValue> call(const char* method) override {
        if (!log_.note(name_ + '.' + method + "()")) {
            return {};
        }
        return method == std::string("Add") ? object("Document") : AutomationValue();
    }

private:
    AutomationValue object(const std::string& name) const {
        return std::shared_ptr<AutomationObject>(std::make_shared<Recorder>(name, log_));
    }

    std::string name_;
    Log& log_;
};

WordProcessor::CreateAutomation creatorOf(Log& log) {
    return [&log](const char* server) -> std::shared_ptr<AutomationObject> {
        return log.note(server) ? std::make_shared<Recorder>("Word", log) : nullptr;
    };
}

} // namespace

TEST(WordProcessor, IsDrivenInOrder) {
    Log log;
    const auto word = WordProcessor::start(creatorOf(log), std::make_unique<Clipboard>(log));
    Text text = "a\r\nb";
    EXPECT_EQ(word->check(text, ""), SpellChecker::Outcome::checked);
    EXPECT_EQ(text, "corrected");
    EXPECT_TRUE(word->finish());
    EXPECT_TRUE(word->finish());
    EXPECT_EQ(
        log.calls,
        "Word.Application, Word.Documents, Documents.Add(), Word.Visible=true, "
        "Word.WindowState=0, Word.Top, Word.Top=-3000, clear, set 'a\r\nb', Document.Content, "
        "Content.Paste(), Document.Activate(), Document.CheckSpelling(), Document.Content, "
        "Content.Copy(), get, Document.Saved=true, Document.Close(), Word.Top=120, "
        "Word.Quit()");
}

/// Whichever call fails, the text stays, and the word processor is ended unless it never started.
TEST(WordProcessor, EndsAfterAnyFailure) {
    constexpr int calls = 17;
    for (int failing = 0; failing < calls; ++failing) {
        Log log;
        log.failing = failing;
        auto word = WordProcessor::start(creatorOf(log), std::make_unique<Clipboard>(log));
        ASSERT_EQ(word == nullptr, failing == 0);
        if (word == nullptr) {
            continue;
        }
        Text text = "text";
        const bool checked = word->check(text, "") == SpellChecker::Outcome::checked;
        constexpr int firstOfTheEnd = 13;
        EXPECT_EQ(checked, failing >= firstOfTheEnd) << failing;
        EXPECT_EQ(text, checked ? "corrected" : "text") << failing;
        if (checked) {
            EXPECT_FALSE(word->finish()) << failing;
        }
        word.reset();
        EXPECT_TRUE(log.calls.ends_with("Word.Quit()")) << log.calls;
        const bool moved = failing > 5;
        EXPECT_EQ(log.calls.find("Word.Top=120") != std::string::npos, moved) << log.calls;
    }
}
