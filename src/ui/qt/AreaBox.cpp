#include <algorithm>
#include <map>
#include <memory>

#include <QFontDatabase>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>

#include "ui/qt/HtmlColours.h"
#include "ui/qt/LineIndent.h"
#include "ui/qt/PositionCount.h"
#include "ui/qt/TextBoxNative.h"

namespace ui {

namespace {

class TextArea : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;
    TextBox::Native* native = nullptr;

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride && native->hooks != nullptr
            && native->hooks->wantsKey(static_cast<const QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
        if (event->type() == QEvent::ShortcutOverride
            && TextBox::Native::isUndoOrRedo(static_cast<const QKeyEvent&>(*event))) {
            event->ignore();
            return true;
        }
        return QPlainTextEdit::event(event);
    }

    bool viewportEvent(QEvent* event) override {
        if (event->type() == QEvent::ToolTip && native->hooks != nullptr) {
            const auto& help = static_cast<const QHelpEvent&>(*event);
            if (native->hooks->showToolTip(help.pos(), help.globalPos())) {
                return true;
            }
        }
        return QPlainTextEdit::viewportEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool taken = native->hooks != nullptr && native->hooks->keyDown(*event);
        if (taken || native->keyDown(*event) || indents(*event)) {
            event->accept();
        } else if (!isReadOnly() && isTyping(*event)) {
            native->enter(event->text());
            if (native->hooks != nullptr) {
                native->hooks->typed(event->text());
            }
        } else if (!isReadOnly() && keyOf(*event).code == KeyCode::enter) {
            // With Shift, too: there is one kind of line break.
            native->replaceSelection(QStringLiteral("\n"));
        } else {
            QPlainTextEdit::keyPressEvent(event);
        }
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        native->admitCommit(*event);
        QPlainTextEdit::inputMethodEvent(event);
    }

    bool canInsertFromMimeData(const QMimeData* source) const override {
        if (native->hooks != nullptr) {
            return native->hooks->takes(*source);
        }
        return !TextBox::Native::bringsFiles(*source)
               && QPlainTextEdit::canInsertFromMimeData(source);
    }

    void insertFromMimeData(const QMimeData* source) override {
        if (native->hooks == nullptr || !native->hooks->enter(*source)) {
            native->enter(source->text());
        }
    }

    void dragMoveEvent(QDragMoveEvent* event) override {
        QPlainTextEdit::dragMoveEvent(event);
        takeCopy(*event);
    }

    void dropEvent(QDropEvent* event) override {
        QPlainTextEdit::dropEvent(event);
        takeCopy(*event);
    }

    void paintEvent(QPaintEvent* event) override {
        QPlainTextEdit::paintEvent(event);
        if (native->hooks != nullptr) {
            native->hooks->painted();
        }
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QPlainTextEdit::mouseDoubleClickEvent(event);
        native->owner.DblClick.raise();
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        if (native->hooks == nullptr) {
            QPlainTextEdit::contextMenuEvent(event);
            return;
        }
        const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
        const QPoint place = byKey ? cursorRect().center() : event->pos();
        const std::unique_ptr<QMenu> menu(createStandardContextMenu(place));
        native->hooks->fillMenu(*menu, place);
        menu->exec(byKey ? viewport()->mapToGlobal(place) : event->globalPos());
    }

    /// The toolkit's own would make blanks of non-breaking spaces.
    QMimeData* createMimeDataFromSelection() const override {
        auto* copied = new QMimeData;
        copied->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n'));
        return copied;
    }

    void focusInEvent(QFocusEvent* event) override {
        QPlainTextEdit::focusInEvent(event);
        native->focusIn(*event);
    }

    void focusOutEvent(QFocusEvent* event) override {
        QPlainTextEdit::focusOutEvent(event);
        native->focusOut(*event);
    }

private:
    /// Files stay where they were.
    static void takeCopy(QDropEvent& event) {
        if (event.isAccepted() && TextBox::Native::bringsFiles(*event.mimeData())) {
            event.setDropAction(Qt::CopyAction);
        }
    }

    bool indents(const QKeyEvent& event) {
        const bool in = event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier;
        const bool out = event.key() == Qt::Key_Backtab;
        return (in || out) && !tabChangesFocus() && !isReadOnly() && indentLines(*this, in);
    }
};

constexpr int chosenLineAlpha = 60; // of 255, so that it differs from selected text

/// Whether some word is so long that breaking lines between words would read it to its end for each
/// of the lines that it takes, as it happens with pictures in a text.
bool hasLongWord(QStringView text) {
    constexpr qsizetype longest = 2000;
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar c) {
        length = c.isSpace() && c != QChar::Nbsp ? 0 : length + 1;
        return length > longest;
    });
}

/// A document counts a line break as one character; the text of a box as two.
struct AreaBox : TextBox::Native {
    AreaBox(TextArea* shown, TextBox& box) : Native(shown, box), area_(*shown) {
        area_.native = this;
        area_.setTabChangesFocus(true);
        QObject::connect(&area_, &QPlainTextEdit::textChanged, [this] {
            if (!setting_) {
                changed();
            }
        });
        QObject::connect(area_.document(), &QTextDocument::contentsChange,
                         [this](int position, int, int added) { checkWords(position, added); });
        QObject::connect(&area_, &QPlainTextEdit::selectionChanged,
                         [this] { owner.SelectionChange.raise(); });
    }

    Text text() const override {
        if (!isEdited()) {
            return original_;
        }
        // Not toPlainText(), which turns non-breaking spaces into blanks.
        return withLineBreaks(area_.document()->toRawText());
    }

    void setText(TextView text) override {
        setting_ = true;
        original_ = text;
        const QString shown = toQt(text);
        breakAnywhere(hasLongWord(shown));
        area_.setPlainText(shown);
        setting_ = false;
        names_.clear();
        steps.end();
    }

    bool isEdited() const override { return area_.document()->isModified(); }

    void setUnedited() override {
        original_ = text();
        area_.document()->setModified(false);
    }

    Selection selection() const override {
        const QTextCursor cursor = area_.textCursor();
        const QString raw = area_.document()->toRawText();
        PositionCount count(raw);
        const std::size_t start = count.offsetAt(cursor.selectionStart());
        return {start, count.offsetAt(cursor.selectionEnd()) - start};
    }

    bool hasSelection() const override { return area_.textCursor().hasSelection(); }

    std::size_t caretPlace() const override {
        return static_cast<std::size_t>(area_.textCursor().selectionStart());
    }

    Text selectedText() const override { return withLineBreaks(area_.textCursor().selectedText()); }

    void select(std::size_t start, std::size_t length) override {
        QTextCursor cursor = area_.textCursor();
        const QString raw = area_.document()->toRawText();
        PositionCount count(raw);
        cursor.setPosition(count.positionAt(start));
        cursor.setPosition(count.positionAt(start + length), QTextCursor::KeepAnchor);
        area_.setTextCursor(cursor);
    }

    void replaceSelection(const QString& text) override {
        QTextCursor cursor = area_.textCursor();
        if (beginsStep_) { // the toolkit joins no block of edits to what was before it
            cursor.beginEditBlock();
        }
        cursor.insertText(text);
        if (std::exchange(beginsStep_, false)) {
            cursor.endEditBlock();
        }
        area_.ensureCursorVisible();
    }

    Text countedText() const override { return withLineBreaks(area_.document()->toRawText()); }

    void edit(const QString& text, std::size_t caret) override {
        QString after = text;
        after.replace(QStringLiteral("\r\n"), QString(QChar::ParagraphSeparator));
        const Difference change = differenceOf(area_.document()->toRawText(), after);
        QTextCursor cursor = area_.textCursor();
        if (change.removed > 0 || change.inserted > 0) {
            cursor.beginEditBlock();
            cursor.setPosition(static_cast<int>(change.start));
            cursor.setPosition(static_cast<int>(change.start + change.removed),
                               QTextCursor::KeepAnchor);
            cursor.insertText(after.mid(change.start, change.inserted));
            cursor.endEditBlock();
        }
        const QString raw = area_.document()->toRawText();
        cursor.setPosition(PositionCount(raw).positionAt(caret));
        area_.setTextCursor(cursor);
        area_.ensureCursorVisible();
    }

    void setForHtml() override {
        area_.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        area_.setTabChangesFocus(false);
        area_.setTabStopDistance(4 * area_.fontMetrics().horizontalAdvance(' '));
        new HtmlColours(area_.document()); // belongs to the document
    }

    bool canUndo() const override { return area_.document()->isUndoAvailable(); }
    bool canRedo() const override { return area_.document()->isRedoAvailable(); }
    void undo() override {
        stepping_ = true;
        area_.undo();
        stepping_ = false;
    }
    void redo() override {
        stepping_ = true;
        area_.redo();
        stepping_ = false;
    }
    QString undoName() const override { return nameAt(names_.find(doneSteps())); }
    QString redoName() const override { return nameAt(names_.upper_bound(doneSteps())); }
    void beginStep() override { beginsStep_ = true; }

    QRect selectionRect() const override {
        QTextCursor end = area_.textCursor();
        QTextCursor start = end;
        start.setPosition(end.selectionStart());
        end.setPosition(end.selectionEnd());
        const QRect place = area_.cursorRect(start).united(area_.cursorRect(end));
        return place.translated(area_.viewport()->pos());
    }

    void setReadOnly() override { area_.setReadOnly(true); }

    void setForChoosingLines() override {
        area_.setReadOnly(true);
        area_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        QObject::connect(&area_, &QPlainTextEdit::cursorPositionChanged, [this] { markLine(); });
    }
    bool isReadOnly() const override { return area_.isReadOnly(); }

private:
    void changed() {
        // The toolkit's own menu takes back as well; only an edit leaves nothing to be done again.
        if (!stepping_ && !canRedo()) {
            names_.erase(names_.lower_bound(doneSteps()), names_.end());
            names_[doneSteps()] = stepName;
        }
        owner.Change.raise();
    }

    void markLine() {
        QTextEdit::ExtraSelection line;
        QColor colour = area_.palette().color(QPalette::Highlight);
        colour.setAlpha(chosenLineAlpha);
        line.format.setBackground(colour);
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = area_.textCursor();
        line.cursor.clearSelection();
        area_.setExtraSelections({line});
    }

    int doneSteps() const { return area_.document()->availableUndoSteps(); }

    QString nameAt(std::map<int, QString>::const_iterator step) const {
        return step == names_.end() ? typing() : step->second;
    }

    void breakAnywhere(bool anywhere) {
        const auto mode =
            anywhere ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
        if (area_.wordWrapMode() != mode) {
            area_.setWordWrapMode(mode);
        }
    }

    /// Looks at the lines of a change. Long words that have gone do no harm.
    void checkWords(int position, int added) {
        const QTextDocument& document = *area_.document();
        const int end = position + added;
        for (QTextBlock line = document.findBlock(position);
             !setting_ && area_.wordWrapMode() != QTextOption::WrapAnywhere && line.isValid()
             && line.position() <= end;
             line = line.next()) {
            breakAnywhere(hasLongWord(line.text()));
        }
    }

    static Text withLineBreaks(QString raw) {
        return fromQt(raw.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n")));
    }

    TextArea& area_;
    Text original_;
    std::map<int, QString> names_; ///< of what can be taken back, by how much is done after it
    bool beginsStep_ = false;
    bool setting_ = false;
    bool stepping_ = false; ///< while something is taken back or done again
};

} // namespace

std::unique_ptr<NativeWidget> makeAreaBox(TextBox& box, QWidget* parent) {
    return std::make_unique<AreaBox>(new TextArea(parent), box);
}

} // namespace ui
