#pragma once

#include <QFocusEvent>
#include <QInputMethodEvent>

#include "ui/TextBox.h"
#include "ui/qt/Native.h"

namespace ui {

/// What is the same for boxes of one line and of many.
struct TextBox::Native : NativeWidget {
    Native(QWidget* shown, TextBox& box) : NativeWidget(shown), owner(box) {}

    virtual Text text() const = 0;
    virtual std::string unicodeText() const { return toQt(text()).toStdString(); }
    virtual void setText(TextView text) = 0;
    virtual Selection selection() const = 0;
    virtual Text selectedText() const = 0;
    virtual void select(std::size_t start, std::size_t length) = 0;
    virtual void replaceSelection(const QString& text) = 0;
    virtual Text countedText() const = 0;
    virtual void edit(const QString& text, std::size_t caret) = 0;
    virtual void setForHtml() {}
    virtual void redo() = 0;
    virtual void setReadOnly() = 0;
    virtual bool isReadOnly() const = 0;

    /// What may come in of a typed or pasted text; beeps when something has to stay out.
    QString admit(const QString& entered) const;

    /// What is typed or pasted takes the place of the selection, unless nothing of it may come in.
    void enter(const QString& entered);

    /// Handles a key before the widget does; true when the widget is not to see it.
    bool keyDown(const QKeyEvent& event);

    /// Replaces what an input method is about to enter by what may come in.
    void admitCommit(QInputMethodEvent& event) const {
        event.setCommitString(admit(event.commitString()), event.replacementStart(),
                              event.replacementLength());
    }

    void focusIn(const QFocusEvent& event);
    void focusOut(const QFocusEvent& event);

    TextBox& owner;
    ForeignCharacters foreign = ForeignCharacters::asReferences;
    QString accepted; ///< empty for all
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
