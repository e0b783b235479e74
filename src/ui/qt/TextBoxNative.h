#pragma once

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QMimeData>

#include "ui/TextBox.h"
#include "ui/TypingSteps.h"
#include "ui/qt/Native.h"
#include "ui/qt/TextHooks.h"

namespace ui {

/// What is the same for boxes of one line and of many.
struct TextBox::Native : NativeWidget {
    Native(QWidget* shown, TextBox& box) : NativeWidget(shown), owner(box) {}

    virtual Text text() const = 0;
    virtual void setText(TextView text) = 0;
    virtual Selection selection() const = 0;
    virtual bool hasSelection() const = 0;

    /// Where the caret is or the selection begins, in units of the toolkit.
    virtual std::size_t caretPlace() const = 0;
    virtual Text selectedText() const = 0;
    virtual void select(std::size_t start, std::size_t length) = 0;
    virtual void replaceSelection(const QString& text) = 0;
    virtual Text countedText() const = 0;
    virtual void edit(const QString& text, std::size_t caret) = 0;
    virtual void setForHtml() {}
    virtual bool isEdited() const = 0;
    virtual void setUnedited() = 0;
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual QString undoName() const { return typing(); }
    virtual QString redoName() const { return typing(); }

    /// What is entered next is not to be taken back together with what was entered before.
    virtual void beginStep() = 0;

    /// Of the caret or the selection, in the widget.
    virtual QRect selectionRect() const = 0;
    virtual void setReadOnly() = 0;
    virtual void setForChoosingLines() { setReadOnly(); }
    virtual bool isReadOnly() const = 0;

    /// What may come in of a typed or pasted text; beeps when something has to stay out.
    QString admit(const QString& entered) const;

    /// What is typed or pasted takes the place of the selection, unless nothing of it may come in.
    void enter(const QString& entered);

    /// Handles a key before the widget does; true when the widget is not to see it.
    bool keyDown(const QKeyEvent& event);

    /// Keys for which a window's command comes before the box.
    static bool isUndoOrRedo(const QKeyEvent& event);

    /// Files that are dropped are for the window; as text they would be addresses.
    static bool bringsFiles(const QMimeData& data) { return !filesIn(data).empty(); }

    static QString typing() { return QStringLiteral("Typing"); }

    /// Replaces what an input method is about to enter by what may come in.
    void admitCommit(QInputMethodEvent& event) const {
        event.setCommitString(admit(event.commitString()), event.replacementStart(),
                              event.replacementLength());
    }

    void focusIn(const QFocusEvent& event);
    void focusOut(const QFocusEvent& event);

    TextBox& owner;
    ForeignCharacters foreign = ForeignCharacters::kept;
    text::CodePage codePage;
    QString accepted; ///< empty for all
    TypingSteps steps;
    QString stepName = typing();
    bool undoneByWindow = false;
    bool entering = false; ///< while enter() is at work
    TextHooks* hooks = nullptr;

private:
    static bool isRedo(const QKeyEvent& event);
    void enterStep(const QString& admitted);
};

std::unique_ptr<NativeWidget> makeLineBox(TextBox& box, QWidget* parent);
std::unique_ptr<NativeWidget> makeAreaBox(TextBox& box, QWidget* parent);

/// The part of one text that another one has instead: from `start`, `removed` characters are
/// `inserted` others.
struct Difference {
    qsizetype start;
    qsizetype removed;
    qsizetype inserted;
};
Difference differenceOf(QStringView before, QStringView after);

/// Whether a key enters text, rather than giving an order.
bool isTyping(const QKeyEvent& event);

/// The text box behind a widget, or null.
TextBox* textBoxOf(const QWidget* widget);

} // namespace ui
