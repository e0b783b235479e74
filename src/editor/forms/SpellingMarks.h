#pragma once

#include <memory>
#include <optional>

#include "tools/SpellingScan.h"
#include "tools/forms/SpellingSettings.h"
#include "ui/HtmlBox.h"
#include "ui/Timer.h"

namespace editor {

using text::Text;

/// The dictionary and the person's words for spelling while typing. They are read when they are
/// first needed, and kept until they are forgotten, or another language is asked for.
class LiveDictionary {
public:
    /// False when no dictionary fits the help's language: then every word would be unknown.
    bool open(const tools::SpellingScope& scope);

    /// Another dictionary may have been chosen, or words added: open() reads anew.
    void forget() { languageTag_.reset(); }

    tools::Dictionary& dictionary() { return *words_->dictionary; }
    tools::PersonalWords& personal() { return words_->personal; }
    std::set<std::string>& ignored() { return ignored_; }

private:
    struct Words {
        std::unique_ptr<tools::Dictionary> dictionary;
        tools::PersonalWords personal;
    };
    std::optional<std::string> languageTag_; ///< of the help for which was looked last
    std::optional<Words> words_;             ///< nothing where none fits
    std::set<std::string> ignored_;
};

/// Underlines the unknown words of a body, a few at a time whenever nothing else is to do, and
/// offers others in its context menu.
class SpellingMarks {
public:
    /// Nothing is owned.
    SpellingMarks(ui::HtmlBox& body, LiveDictionary& words);

    /// Looks at the text anew.
    void begin(Text text);

    /// Forgets what is under way: the text is another one.
    void stop();

    /// No underlined words until the next begin().
    void clear();

    /// The word at the caret is marked when the caret has left it.
    void caretMoved();

    void fillMenu(ui::TextMenu& menu);

    /// What has been looked at is marked; for tests.
    bool isDone() const { return scan_ == nullptr || !slice_.isRunning(); }

private:
    void goOn();
    void show();
    void correct(const tools::SpellingWord& word, const std::string& correction);
    void accept(const std::string& word);

    ui::HtmlBox& body_;
    LiveDictionary& words_;
    std::unique_ptr<tools::SpellingScan> scan_;
    ui::Timer slice_;
    bool hidesOne_ = false; ///< the word at the caret
};

} // namespace editor
