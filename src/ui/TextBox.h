#pragma once

#include "ui/Control.h"
#include "ui/Event.h"
#include "ui/Key.h"

namespace ui {

/// Offsets and lengths are those of countedText(), in which a line break is two characters.
struct Selection {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// What becomes of typed or pasted characters that the code page lacks.
enum class ForeignCharacters {
    asReferences, ///< "&#937;": nothing is lost in HTML
    refused,      ///< with a beep, where a reference would make no sense
    kept          ///< in boxes of one line for what is only looked for, see unicodeText()
};

/// A box for one line or for many. A text that nobody has edited comes back as it was set, byte by
/// byte.
class TextBox : public Control {
public:
    enum class Lines { one, many };

    explicit TextBox(Container& container, Lines lines = Lines::one);

    Text text() const;
    std::string unicodeText() const; ///< in UTF-8

    /// Forgets what could be undone.
    void setText(TextView text);

    Selection selection() const;
    Text selectedText() const;

    /// Positions beyond the end mean the end.
    void select(std::size_t start, std::size_t length);

    void selectAll();

    /// As if typed: raises Change and can be undone.
    void replaceSelection(TextView text);

    /// The text as selection() counts it: with CR LF at the end of every line, whatever the text
    /// was that was set.
    Text countedText() const;

    /// Makes the text another one, by the smallest edit and as one step that can be undone. Raises
    /// Change if it is another. `caret` counts in the new text.
    void edit(TextView text, std::size_t caret);

    // Through the clipboard, as plain text. What is cut or pasted counts as typed.
    void copy();
    void cut();
    void paste();

    /// For a box of many lines that holds HTML: a font of fixed width, coloured mark-up, and the
    /// Tab key enters a tab.
    void setForHtml();

    void setReadOnly();
    bool isReadOnly() const;
    void setForeignCharacters(ForeignCharacters what);

    /// Other characters than these are refused with a beep, typed or pasted.
    void acceptOnly(TextView characters);

    Event<> Change;
    Event<> SelectionChange;

    // Not raised when a menu or another window has the focus for a while.
    Event<> GotFocus;
    Event<> LostFocus;
    Event<Key&> KeyDown;

    struct Native;
    Native& box() const;

private:
    static std::unique_ptr<NativeWidget> make(TextBox& box, Container& container, Lines lines);
};

} // namespace ui
