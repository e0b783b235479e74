#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "ui/Incoming.h"
#include "ui/TextBox.h"

namespace ui {

/// What a marked part of a text is marked as, and drawn accordingly.
enum class MarkKind { misspelt, fault, pair, found };
inline constexpr int markKinds = 4;

/// Counts as Selection does.
struct TextMark {
    std::size_t start = 0;
    std::size_t length = 0;
    Text toolTip = {};

    bool operator==(const TextMark&) const = default;
};

/// Counts from 1; the column in characters.
struct CaretPlace {
    int line = 1;
    int column = 1;
};

/// A key that can mean more than the letter that it enters.
struct EditKey {
    enum class Which { tab, enter };
    Which which = Which::tab;
    bool shift = false;
    bool handled = false;
};

/// What the context menu is to offer beyond the usual.
struct TextMenu {
    struct Entry {
        Text caption; ///< empty for a line between entries
        std::function<void()> run;
    };
    std::size_t offset = 0; ///< in the text, where the menu was asked for
    std::vector<Entry> entries = {};
};

/// A box of many lines for mark-up: parts of the text can be marked without being changed, words
/// offered for completion, and more than text pasted and dropped.
class HtmlBox : public TextBox {
public:
    explicit HtmlBox(Container& container);
    ~HtmlBox() override;

    /// Replaces the marks of one kind, which are in order. They move with the text; a change within
    /// one takes it away.
    void setMarks(MarkKind kind, const std::vector<TextMark>& marks);
    std::vector<TextMark> marks(MarkKind kind) const;

    CaretPlace caretPlace() const; ///< at once, however long the text is

    /// So many characters before the caret, or less at the beginning; at once, too.
    Text textBeforeCaret(int characters) const;

    /// Whether the caret is in a tag or at its edge, as far as its line tells; at once.
    bool isAtTag() const;

    /// Shows a list of texts at the caret; the one that is chosen takes the place of the last
    /// `typed` characters before it. None closes the list. With `first`, Enter and
    /// Tab take the first one at once; otherwise they do what they always do until an arrow key has
    /// chosen one.
    void offer(const std::vector<Text>& choices, int typed, bool first);
    std::vector<Text> offered() const;

    /// Whether files that are about to be dropped are of use.
    std::function<bool(const std::vector<std::filesystem::path>&)> takesFiles;

    Event<> CaretMove;     ///< by whatever
    Event<TextView> Typed; ///< letters that the person has entered, when they stand in the text
    Event<EditKey&> EditKeyDown;
    Event<Incoming&> Entering; ///< where nobody handles it, its text is entered
    Event<TextMenu&> MenuOpening;
    Event<> Chosen; ///< one of the offered texts has been put in

private:
    struct Hooks;
    std::unique_ptr<Hooks> hooks_;
};

} // namespace ui
