#pragma once

#include "text/CodePage.h"
#include "ui/Control.h"
#include "ui/Event.h"
#include "ui/Key.h"

namespace ui {

/// Offsets and lengths in bytes of countedText(), in which a line break is two.
struct Selection {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// In twips.
struct ScreenPlace {
    int left, top, width, height;
};

/// What becomes of typed or pasted characters that the code page lacks.
enum class ForeignCharacters {
    kept,
    refused ///< with a beep, where the workshop's files could not name them
};

/// A box for one line or for many. A text that nobody has edited comes back as it was set, byte by
/// byte.
class TextBox : public Control {
public:
    enum class Lines { one, many };

    explicit TextBox(Container& container, Lines lines = Lines::one);

    Text text() const;

    /// Forgets what could be undone.
    void setText(TextView text);

    /// The same for another state of what is shown already: the caret goes where they differ.
    void changeText(TextView text);

    /// Whether the text differs from the one that was set, by an edit that was not taken back.
    bool isEdited() const;

    /// The text of now counts as the one that was set; what was done can still be taken back.
    void setUnedited();

    Selection selection() const;
    bool hasSelection() const; ///< at once, however long the text is
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

    // Step by step, see TypingSteps.
    bool canUndo() const;
    bool canRedo() const;
    void undo();
    void redo();

    /// What undo() and redo() would take back and do again, for the person; empty for nothing.
    Text undoName() const;
    Text redoName() const;

    /// What changes from here on has this name in undoName(), in boxes of many lines; empty for
    /// what is typed.
    void nameSteps(TextView name);

    /// The box takes nothing back itself: what is typed is undone by commands of the window, step
    /// by step as StepBegins tells.
    void leaveUndoToWindow();

    /// Where the caret or the selection is on the screen.
    ScreenPlace selectionPlace() const;

    /// For a box of many lines that holds HTML: a font of fixed width, coloured mark-up, and the
    /// Tab key enters a tab, or moves the selected lines in; with Shift, out again.
    void setForHtml();

    void setReadOnly();
    bool isReadOnly() const;

    /// For lines that can be chosen but not changed: the caret's is marked, and goes with the arrow
    /// keys. In boxes of many lines.
    void setForChoosingLines();
    void setForeignCharacters(ForeignCharacters what);

    /// The western one until another is set.
    void setCodePage(const text::CodePage& codePage);

    /// Other characters than these are refused with a beep, typed or pasted.
    void acceptOnly(TextView characters);

    Event<> Change;
    Event<> StepBegins; ///< the next Change is not to be taken back together with the last
    Event<> SelectionChange;

    // Not raised when a menu or another window has the focus for a while.
    Event<> GotFocus;
    Event<> LostFocus;
    Event<Key&> KeyDown;
    Event<> DblClick; ///< in boxes of many lines

    struct Native;
    Native& box() const;

private:
    static std::unique_ptr<NativeWidget> make(TextBox& box, Container& container, Lines lines);
};

} // namespace ui
