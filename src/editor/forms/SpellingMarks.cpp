#include "editor/forms/SpellingMarks.h"

#include <algorithm>

namespace editor {

bool LiveDictionary::open(const tools::SpellingScope& scope) {
    if (languageTag_ != scope.languageTag) { // also where none was found: looking reads files
        languageTag_ = scope.languageTag;
        words_.reset();
        if (tools::ChosenDictionary chosen = tools::chosenDictionary(scope); chosen.fits) {
            words_.emplace(Words{std::move(chosen.dictionary),
                                 tools::PersonalWords(tools::personalWordsFile(scope.settings))});
        }
    }
    return words_.has_value();
}

SpellingMarks::SpellingMarks(ui::HtmlBox& body, LiveDictionary& words)
    : body_(body), words_(words) {
    slice_.Tick.connect([this] { goOn(); });
}

void SpellingMarks::begin(Text text) {
    scan_ = std::make_unique<tools::SpellingScan>(std::move(text), words_.dictionary(),
                                                  words_.personal());
    slice_.start(0);
}

void SpellingMarks::stop() {
    slice_.stop();
    scan_.reset();
}

void SpellingMarks::clear() {
    stop();
    body_.setMarks(ui::MarkKind::misspelt, {});
}

/// A key that comes meanwhile waits for a millisecond or two.
void SpellingMarks::goOn() {
    constexpr int wordsAtOnce = 200;
    if (scan_ == nullptr) {
        return;
    }
    if (scan_->goOn(wordsAtOnce)) {
        slice_.start(0);
    } else {
        show();
    }
}

void SpellingMarks::show() {
    const std::size_t caret = body_.selection().start;
    std::vector<ui::TextMark> marks;
    hidesOne_ = false;
    for (const tools::SpellingWord& word : scan_->unknown()) {
        const bool atCaret = body_.hasFocus() && word.start <= caret
                             && caret <= word.start + word.length && caret > 0;
        hidesOne_ = hidesOne_ || atCaret;
        if (!atCaret && !words_.ignored().contains(word.letters)) {
            marks.push_back({word.start, word.length, "\"" + word.letters + "\" is not known."});
        }
    }
    body_.setMarks(ui::MarkKind::misspelt, marks);
}

void SpellingMarks::caretMoved() {
    if (hidesOne_ && scan_ != nullptr && !slice_.isRunning()) {
        show();
    }
}

void SpellingMarks::fillMenu(ui::TextMenu& menu) {
    if (scan_ == nullptr || slice_.isRunning()) {
        return;
    }
    const auto& unknown = scan_->unknown();
    const auto found =
        std::find_if(unknown.begin(), unknown.end(), [&menu](const tools::SpellingWord& word) {
            return word.start <= menu.offset && menu.offset <= word.start + word.length;
        });
    if (found == unknown.end() || words_.ignored().contains(found->letters)) {
        return;
    }
    constexpr std::size_t most = 7;
    std::vector<std::string> better = words_.dictionary().suggestions(found->letters);
    better.resize(std::min(better.size(), most));
    for (const std::string& word : better) {
        menu.entries.push_back({word, [this, old = *found, word] { correct(old, word); }});
    }
    if (better.empty()) {
        menu.entries.push_back({"No Suggestions", [] {}});
    }
    menu.entries.push_back({});
    menu.entries.push_back({"Ignore All", [this, word = found->letters] {
                                words_.ignored().insert(word);
                                show();
                            }});
    menu.entries.push_back({"Add to Dictionary", [this, word = found->letters] { accept(word); }});
    menu.entries.push_back({});
}

void SpellingMarks::accept(const std::string& word) {
    static_cast<void>(words_.personal().add(word)); // known at least until the program ends
    words_.ignored().insert(word);
    show();
}

/// As the spelling dialog would: references and apostrophes stay as they are.
void SpellingMarks::correct(const tools::SpellingWord& word, const std::string& correction) {
    const Text text = body_.countedText();
    tools::Spelling spelling(words_.dictionary(), words_.personal());
    spelling.begin(text.substr(word.start, word.length));
    if (spelling.next()) {
        spelling.change(correction);
        body_.nameSteps("Correct Spelling");
        body_.select(word.start, word.length);
        body_.replaceSelection(spelling.text());
        body_.nameSteps({});
    }
}

} // namespace editor
