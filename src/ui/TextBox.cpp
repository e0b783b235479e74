#include "ui/TextBox.h"

#include <algorithm>

#include <QClipboard>
#include <QGuiApplication>
#include <QVariant>

#include "ui/Prompter.h"
#include "ui/Twips.h"
#include "ui/qt/TextBoxNative.h"

namespace ui {

std::unique_ptr<NativeWidget> TextBox::make(TextBox& box, Container& container, Lines lines) {
    QWidget* parent = container.client().widget;
    return lines == Lines::one ? makeLineBox(box, parent) : makeAreaBox(box, parent);
}

namespace {
constexpr const char* boxProperty = "textBox"; // how a widget knows its box
} // namespace

TextBox::TextBox(Container& container, Lines lines) : Control(make(*this, container, lines)) {
    native().widget->setProperty(boxProperty, QVariant::fromValue(static_cast<void*>(this)));
}

TextBox* textBoxOf(const QWidget* widget) {
    if (widget == nullptr) {
        return nullptr;
    }
    return static_cast<TextBox*>(widget->property(boxProperty).value<void*>());
}

TextBox::Native& TextBox::box() const {
    return static_cast<Native&>(native());
}

Text TextBox::text() const {
    return box().text();
}

void TextBox::setText(TextView text) {
    box().setText(text);
}

void TextBox::changeText(TextView text) {
    const QString now = toQt(text);
    const Difference change = differenceOf(toQt(countedText()), now);
    setText(text);
    select(utf8Length(QStringView(now).first(change.start + change.inserted)), 0);
}

bool TextBox::isEdited() const {
    return box().isEdited();
}

void TextBox::setUnedited() {
    box().setUnedited();
}

Selection TextBox::selection() const {
    return box().selection();
}

bool TextBox::hasSelection() const {
    return box().hasSelection();
}

Text TextBox::selectedText() const {
    return box().selectedText();
}

void TextBox::select(std::size_t start, std::size_t length) {
    box().select(start, length);
}

void TextBox::selectAll() {
    box().select(0, countedText().size());
}

void TextBox::replaceSelection(TextView text) {
    box().beginStep();
    box().steps.end();
    box().replaceSelection(box().admit(toQt(text)));
}

void TextBox::copy() {
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(toQt(selectedText()));
}

void TextBox::cut() {
    copy();
    box().replaceSelection({});
}

void TextBox::paste() {
    box().enter(QGuiApplication::clipboard()->text());
}

bool TextBox::canUndo() const {
    return box().canUndo();
}

bool TextBox::canRedo() const {
    return box().canRedo();
}

void TextBox::undo() {
    box().steps.end();
    box().undo();
}

void TextBox::redo() {
    box().steps.end();
    box().redo();
}

Text TextBox::undoName() const {
    return canUndo() ? fromQt(box().undoName()) : Text();
}

Text TextBox::redoName() const {
    return canRedo() ? fromQt(box().redoName()) : Text();
}

void TextBox::nameSteps(TextView name) {
    box().stepName = name.empty() ? Native::typing() : toQt(name);
    box().steps.end();
}

void TextBox::leaveUndoToWindow() {
    box().undoneByWindow = true;
}

ScreenPlace TextBox::selectionPlace() const {
    const QRect place = box().selectionRect();
    const QPoint corner = native().widget->mapToGlobal(place.topLeft());
    return {toTwips(corner.x()), toTwips(corner.y()), toTwips(place.width()),
            toTwips(place.height())};
}

Text TextBox::countedText() const {
    return box().countedText();
}

void TextBox::edit(TextView text, std::size_t caret) {
    box().beginStep();
    box().steps.end();
    box().edit(toQt(text), caret);
}

void TextBox::setForHtml() {
    box().setForHtml();
}

void TextBox::setReadOnly() {
    box().setReadOnly();
}

bool TextBox::isReadOnly() const {
    return box().isReadOnly();
}

void TextBox::setForChoosingLines() {
    box().setForChoosingLines();
}

void TextBox::setForeignCharacters(ForeignCharacters what) {
    box().foreign = what;
}

void TextBox::setCodePage(const text::CodePage& codePage) {
    box().codePage = codePage;
}

void TextBox::acceptOnly(TextView characters) {
    box().accepted = toQt(characters);
}

QString TextBox::Native::admit(const QString& entered) const {
    QString admitted = entered;
    if (foreign == ForeignCharacters::refused) {
        admitted.clear();
        for (const char32_t character : entered.toUcs4()) {
            admitted += codePage.has(character) ? QString::fromUcs4(&character, 1) : QString();
        }
    }
    if (!accepted.isEmpty()) {
        admitted.removeIf([this](QChar character) { return !accepted.contains(character); });
    }
    if (admitted.size() < entered.size()) {
        Prompter::current().beep();
    }
    return admitted;
}

void TextBox::Native::enter(const QString& entered) {
    QString lines = entered;
    lines.replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
    const QString admitted = admit(lines);
    if (!admitted.isEmpty() || entered.isEmpty()) {
        enterStep(admitted);
    }
}

void TextBox::Native::enterStep(const QString& admitted) {
    const std::size_t place = caretPlace();
    const std::u16string letters = admitted.toStdU16String();
    if (steps.entering(place, letters, std::chrono::steady_clock::now())) {
        beginStep();
        owner.StepBegins.raise();
    }
    entering = true;
    replaceSelection(admitted);
    entering = false;
}

bool TextBox::Native::isUndoOrRedo(const QKeyEvent& event) {
    return event.matches(QKeySequence::Undo) || isRedo(event);
}

bool TextBox::Native::isRedo(const QKeyEvent& event) {
    // Ctrl+Y is not everywhere the toolkit's own key for it.
    return event.matches(QKeySequence::Redo)
           || (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Y);
}

bool TextBox::Native::keyDown(const QKeyEvent& event) {
    Key key = keyOf(event);
    owner.KeyDown.raise(key);
    if (!key.handled && isUndoOrRedo(event)) {
        if (!undoneByWindow) {
            isRedo(event) ? owner.redo() : owner.undo();
        }
        key.handled = true;
    }
    // A letter with Alt is a menu's or label's; where there is none of it, it is no text either.
    const bool alt = event.modifiers() == Qt::AltModifier;
    return key.handled || (alt && !event.text().isEmpty() && event.text().at(0).isPrint());
}

/// A menu, a dialog and another program only borrow the focus.
static bool isBorrowed(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason
           || event.reason() == Qt::ActiveWindowFocusReason;
}

void TextBox::Native::focusIn(const QFocusEvent& event) {
    if (!isBorrowed(event)) {
        owner.GotFocus.raise();
    }
}

void TextBox::Native::focusOut(const QFocusEvent& event) {
    if (!isBorrowed(event)) {
        owner.LostFocus.raise();
    }
}

Difference differenceOf(QStringView before, QStringView after) {
    const auto [beforeStart, afterStart] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto [beforeEnd, afterEnd] =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(beforeStart), after.rbegin(),
                      std::make_reverse_iterator(afterStart));
    return {beforeStart - before.begin(), beforeEnd.base() - beforeStart,
            afterEnd.base() - afterStart};
}

bool isTyping(const QKeyEvent& event) {
    const auto orders = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    // AltGr arrives as Control and Alt together.
    const bool order = (event.modifiers() & orders) != 0
                       && (event.modifiers() & orders) != (Qt::ControlModifier | Qt::AltModifier);
    const QString text = event.text();
    return !order && !text.isEmpty() && (text.at(0).isPrint() || text.at(0).isSurrogate());
}

} // namespace ui
