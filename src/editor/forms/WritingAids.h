#pragma once

#include "editor/Completion.h"
#include "editor/forms/SpellingMarks.h"
#include "model/ProjectOptions.h"

namespace editor {

/// Which helps are wanted; kept in the settings.
struct AidChoice {
    bool spelling = true;
    bool faults = true;
    bool pairs = true;
    bool closing = true;
    bool completion = true;

    static AidChoice from(const ui::Settings& settings);
    void storeIn(ui::Settings& settings) const;
};

/// Helps with the mark-up of a body while it is written: marks tags that are not closed or cross,
/// the tag that belongs to the one at the caret, and misspelt words; closes tags and offers names.
/// Whatever has to read the whole text waits until nobody types.
class WritingAids {
public:
    struct Parts {
        ui::HtmlBox& body;
        ui::Settings& settings;
        LiveDictionary& words;
        std::vector<std::filesystem::path> dictionaryFolders;
        const model::ProjectOptions& options; ///< which may change meanwhile
        KnownNames& names;
    };
    /// Nothing of it is owned.
    explicit WritingAids(Parts parts);

    void choose(const AidChoice& choice);
    const AidChoice& choice() const { return choice_; }

    // The box tells.
    void textChanged();
    void caretMoved();
    void typed(TextView letters);
    void fillMenu(ui::TextMenu& menu) { spelling_.fillMenu(menu); }

    /// What could go on at the caret, because the author wants to see it.
    void complete(bool asked);

    /// Other words may be known now.
    void wordsChanged();

    ui::Event<std::size_t> WordsCounted; ///< how many words the text has, now and then

    bool isDone() const { return !pause_.isRunning() && spelling_.isDone(); }

private:
    void look();
    void showPair();
    void closeTag();
    bool repeatsClosing(TextView letters);

    Parts parts_;
    AidChoice choice_;
    SpellingMarks spelling_;
    Text closing_;  ///< what was put in for an end tag, as long as it may be typed, too
    Text repeated_; ///< what of it has been typed, and left out
    ui::CaretPlace closedAt_;
    ui::Timer pause_;      ///< since the last change
    ui::Timer caretPause_; ///< since the caret was moved
};

} // namespace editor
