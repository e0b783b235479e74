#include <algorithm>
#include <limits>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>

#include "ui/qt/TextBoxNative.h"

namespace ui {

namespace {

class LineEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    TextBox::Native* native = nullptr;

    /// Grey, as what cannot be typed into, in whichever colours the desktop has at present.
    void greyOut() {
        const QBrush background = QGuiApplication::palette().brush(QPalette::Window);
        if (palette().brush(QPalette::Base) != background) {
            QPalette own;
            own.setBrush(QPalette::Base, background);
            setPalette(own);
        }
    }

protected:
    void changeEvent(QEvent* event) override {
        QLineEdit::changeEvent(event);
        if (isReadOnly() && event->type() == QEvent::PaletteChange) {
            greyOut();
        }
    }

    /// Some desktops have Ctrl+U delete the line, and Ctrl+E go to its end; a window's command
    /// comes first.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            const bool ofDesktop = key.key() == Qt::Key_U || key.key() == Qt::Key_E;
            if ((key.modifiers() == Qt::ControlModifier && ofDesktop)
                || TextBox::Native::isUndoOrRedo(key)) {
                event->ignore();
                return true;
            }
        }
        return QLineEdit::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (native->keyDown(*event)) {
            event->accept();
        } else if (!isReadOnly() && isTyping(*event)) {
            native->enter(event->text());
        } else if (!isReadOnly() && event->matches(QKeySequence::Paste)) {
            native->enter(QGuiApplication::clipboard()->text());
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        native->admitCommit(*event);
        QLineEdit::inputMethodEvent(event);
    }

    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        native->focusIn(*event);
    }

    void focusOutEvent(QFocusEvent* event) override {
        // The menu bar takes the focus for a while; the selection is what its commands are for.
        QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
        const bool menu = event->reason() == Qt::MenuBarFocusReason;
        QLineEdit::focusOutEvent(menu ? &popup : event);
        native->focusOut(*event);
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        QMenu* menu = createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const QList<QAction*> actions = menu->actions();
        if (native->undoneByWindow && !isReadOnly()) {
            for (const qsizetype ofUndo : {0, 1, 2}) { // with the line below them
                menu->removeAction(actions.value(ofUndo));
            }
        }
        menu->popup(event->globalPos());
    }

    void dragEnterEvent(QDragEnterEvent* event) override {
        if (TextBox::Native::bringsFiles(*event->mimeData())) {
            event->ignore();
        } else {
            QLineEdit::dragEnterEvent(event);
        }
    }

public:
    /// Line breaks become blanks.
    static QString oneLine(QString text) {
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        for (QChar& character : text) {
            if (character == '\r' || character == '\n' || character == QChar::ParagraphSeparator
                || character == QChar::LineSeparator) {
                character = ' ';
            }
        }
        return text;
    }
};

struct LineBox : TextBox::Native {
    LineBox(LineEdit* shown, TextBox& box) : Native(shown, box), line_(*shown) {
        line_.native = this;
        line_.setMaxLength(std::numeric_limits<int>::max());
        QObject::connect(&line_, &QLineEdit::textEdited,
                         [this](const QString& now) { edited(now); });
        QObject::connect(&line_, &QLineEdit::selectionChanged,
                         [this] { owner.SelectionChange.raise(); });
    }

    Text text() const override { return edited_ ? fromQt(line_.text()) : original_; }

    void setText(TextView text) override {
        original_ = text;
        edited_ = false;
        shown_ = unedited_ = toQt(text);
        line_.setText(shown_);
        line_.setCursorPosition(0);
        steps.end();
    }

    bool isEdited() const override { return edited_; }

    void setUnedited() override {
        original_ = text();
        unedited_ = line_.text();
        edited_ = false;
    }

    Selection selection() const override {
        const std::size_t start =
            utf8Length(QStringView(line_.text()).first(static_cast<qsizetype>(caretPlace())));
        return {start, utf8Length(line_.selectedText())};
    }

    bool hasSelection() const override { return line_.hasSelectedText(); }

    std::size_t caretPlace() const override {
        return static_cast<std::size_t>(line_.hasSelectedText() ? line_.selectionStart()
                                                                : line_.cursorPosition());
    }

    Text selectedText() const override { return fromQt(line_.selectedText()); }

    void select(std::size_t start, std::size_t length) override {
        const QString text = line_.text();
        const qsizetype from = unitsWithin(text, start);
        const qsizetype selected = unitsWithin(QStringView(text).mid(from), length);
        line_.setSelection(static_cast<int>(from), static_cast<int>(selected));
    }

    void replaceSelection(const QString& text) override { line_.insert(LineEdit::oneLine(text)); }
    Text countedText() const override { return fromQt(line_.text()); }

    void edit(const QString& text, std::size_t caret) override {
        const Difference change = differenceOf(line_.text(), text);
        if (change.removed > 0 || change.inserted > 0) {
            line_.setSelection(static_cast<int>(change.start), static_cast<int>(change.removed));
            line_.insert(text.mid(change.start, change.inserted));
        }
        select(caret, 0);
    }

    bool canUndo() const override { return !undoneByWindow && line_.isUndoAvailable(); }
    bool canRedo() const override { return !undoneByWindow && line_.isRedoAvailable(); }
    void undo() override {
        stepping_ = true;
        line_.undo();
        stepping_ = false;
    }
    void redo() override {
        stepping_ = true;
        line_.redo();
        stepping_ = false;
    }

    /// The toolkit joins what is entered at one caret, so the caret has to have been elsewhere.
    void beginStep() override {
        if (!line_.hasSelectedText()) {
            const int caret = line_.cursorPosition();
            line_.setCursorPosition(caret > 0 ? caret - 1 : 1);
            line_.setCursorPosition(caret);
        }
    }

    /// The whole box: there is no more of the text to be seen.
    QRect selectionRect() const override { return line_.rect(); }

    void setReadOnly() override {
        line_.setReadOnly(true);
        line_.setFocusPolicy(Qt::ClickFocus); // to copy from, but no station of the Tab key
        line_.greyOut();
    }
    bool isReadOnly() const override { return line_.isReadOnly(); }

private:
    /// Some ways in (a drop, the toolkit's own menu) bypass the key handler: what came in is looked
    /// at once more.
    void edited(const QString& now) {
        const Difference entry = differenceOf(shown_, now);
        shown_ = now;
        edited_ = now != unedited_ || !(stepping_ || line_.isRedoAvailable());
        const QString entered = now.mid(entry.start, entry.inserted);
        if (const QString admitted = admitLine(entered); admitted != entered) {
            line_.setSelection(static_cast<int>(entry.start), static_cast<int>(entry.inserted));
            line_.insert(admitted); // comes back here
            return;
        }
        if (!entering && beginsStep(entry, entered)) {
            owner.StepBegins.raise();
        }
        owner.Change.raise();
    }

    bool beginsStep(const Difference& entry, const QString& entered) {
        const auto now = std::chrono::steady_clock::now();
        return entry.inserted == 0 ? steps.deleting(now)
                                   : steps.entering(static_cast<std::size_t>(entry.start),
                                                    entered.toStdU16String(), now);
    }

    QString admitLine(const QString& entered) const { return admit(LineEdit::oneLine(entered)); }

    LineEdit& line_;
    Text original_;
    QString unedited_; ///< what is shown of it
    QString shown_;
    bool edited_ = false;
    bool stepping_ = false; ///< while something is taken back or done again
};

} // namespace

std::unique_ptr<NativeWidget> makeLineBox(TextBox& box, QWidget* parent) {
    return std::make_unique<LineBox>(new LineEdit(parent), box);
}

} // namespace ui
