#include "editor/forms/WritingAids.h"

#include <utility>

#include "editor/TagStructure.h"

namespace editor {

namespace {

constexpr const char* section = "Writing Aids";

struct Entry {
    const char* key;
    bool AidChoice::*value;
};

constexpr Entry entries[] = {{"Spelling", &AidChoice::spelling},
                             {"Tags", &AidChoice::faults},
                             {"Pairs", &AidChoice::pairs},
                             {"Closing", &AidChoice::closing},
                             {"Completion", &AidChoice::completion}};

} // namespace

AidChoice AidChoice::from(const ui::Settings& settings) {
    AidChoice choice;
    for (const Entry& entry : entries) {
        choice.*entry.value = settings.number(section, entry.key, 1) != 0;
    }
    return choice;
}

void AidChoice::storeIn(ui::Settings& settings) const {
    for (const Entry& entry : entries) {
        settings.setNumber(section, entry.key, this->*entry.value ? 1 : 0);
    }
}

WritingAids::WritingAids(Parts parts)
    : parts_(std::move(parts)), choice_(AidChoice::from(parts_.settings)),
      spelling_(parts_.body, parts_.words) {
    pause_.Tick.connect([this] { look(); });
    caretPause_.Tick.connect([this] { showPair(); });
}

void WritingAids::choose(const AidChoice& choice) {
    choice_ = choice;
    choice_.storeIn(parts_.settings);
    look();
    showPair();
}

void WritingAids::textChanged() {
    constexpr int patience = 400;
    spelling_.stop();
    pause_.start(patience);
}

void WritingAids::caretMoved() {
    constexpr int patience = 120;
    caretPause_.start(patience);
}

void WritingAids::wordsChanged() {
    parts_.words.forget();
    spelling_.clear();
    textChanged();
}

void WritingAids::look() {
    const Text text = parts_.body.countedText();
    std::vector<ui::TextMark> marks;
    if (choice_.faults) {
        for (TagFault& fault : tagFaults(text)) {
            marks.push_back({fault.tag.start, fault.tag.length, std::move(fault.message)});
        }
    }
    parts_.body.setMarks(ui::MarkKind::fault, marks);
    WordsCounted.raise(visibleWordCount(text));
    if (choice_.spelling
        && parts_.words.open(
            {parts_.settings, parts_.dictionaryFolders, parts_.options.languageTag})) {
        spelling_.begin(text);
    } else {
        spelling_.clear();
    }
}

void WritingAids::showPair() {
    std::vector<ui::TextMark> marks;
    if (choice_.pairs && !parts_.body.hasSelection() && parts_.body.isAtTag()) {
        const auto pair = tagPairAt(parts_.body.countedText(), parts_.body.selection().start);
        if (pair) {
            marks = {{pair->open.start, pair->open.length},
                     {pair->close.start, pair->close.length}};
        }
    }
    parts_.body.setMarks(ui::MarkKind::pair, marks);
    spelling_.caretMoved();
}

void WritingAids::typed(TextView letters) {
    if (repeatsClosing(letters)) {
        return;
    }
    if (choice_.closing && letters == "/" && parts_.body.textBeforeCaret(2) == "</") {
        closeTag();
    } else if (choice_.completion) {
        complete(false);
    }
}

void WritingAids::closeTag() {
    const std::size_t caret = parts_.body.selection().start;
    const TextView mark = "</";
    const Text text = parts_.body.countedText();
    const Text element = elementToClose(TextView(text).substr(0, caret - mark.size()));
    const TextView behind = TextView(text).substr(caret);
    const bool isThere = behind.starts_with(element + ">");
    if (!element.empty() && !isThere) {
        parts_.body.nameSteps("Close Tag");
        parts_.body.replaceSelection(element + ">");
        parts_.body.nameSteps({});
        closing_ = element + ">";
        repeated_.clear();
        closedAt_ = parts_.body.caretPlace();
    }
}

/// Who types the end tag to its end does not want its letters twice. Words may begin like it, too.
bool WritingAids::repeatsClosing(TextView letters) {
    const Text due = std::exchange(closing_, {});
    const ui::CaretPlace now = parts_.body.caretPlace();
    const bool follows = now.line == closedAt_.line && now.column == closedAt_.column + 1;
    if (due.empty() || letters.empty() || !follows) {
        return false;
    }
    const std::size_t caret = parts_.body.selection().start; // reads the whole text
    if (due.starts_with(letters)) {
        closing_ = due.substr(letters.size());
        repeated_ += letters;
        parts_.body.select(caret - letters.size(), letters.size());
        parts_.body.replaceSelection({});
        return true;
    }
    if (!repeated_.empty()) {
        parts_.body.select(caret - letters.size(), letters.size());
        parts_.body.replaceSelection(repeated_ + Text(letters));
    }
    return false;
}

void WritingAids::complete(bool asked) {
    constexpr int farEnough = 500;
    const Completion completion =
        completionAt(parts_.body.textBeforeCaret(farEnough), parts_.names, asked);
    parts_.body.offer(completion.choices, completion.typed, completion.sure);
}

} // namespace editor
