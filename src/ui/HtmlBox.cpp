#include "ui/HtmlBox.h"

#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QToolTip>

#include "text/TextLines.h"
#include "ui/qt/ChoiceList.h"
#include "ui/qt/PositionCount.h"
#include "ui/qt/TextBoxNative.h"
#include "ui/qt/TextHooks.h"
#include "ui/qt/TextMarks.h"

namespace ui {

Incoming incomingFrom(const QMimeData& data) {
    Incoming incoming;
    incoming.files = filesIn(data);
    incoming.html = data.hasHtml() ? fromQt(data.html()) : Text();
    incoming.text = data.hasText() ? text::withLineBreaks(fromQt(data.text())) : Text();
    if (data.hasImage() && incoming.files.empty()) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        const auto image = data.imageData().value<QImage>();
        if (!image.isNull() && image.save(&buffer, "PNG")) {
            incoming.picture = bytes.toStdString();
        }
    }
    return incoming;
}

struct HtmlBox::Hooks : TextHooks {
    explicit Hooks(HtmlBox& box)
        : owner(box), area(static_cast<QPlainTextEdit&>(*box.native().widget)), marks(area),
          choices(area) {
        choices.chosen = [this] { owner.Chosen.raise(); };
        QObject::connect(&area, &QPlainTextEdit::cursorPositionChanged, &context,
                         [this] { owner.CaretMove.raise(); });
    }

    bool wantsKey(const QKeyEvent& event) override { return choices.wants(event); }

    bool keyDown(const QKeyEvent& event) override {
        if (choices.keyDown(event)) {
            return true;
        }
        const bool back = event.key() == Qt::Key_Backtab;
        const bool tab = back || event.key() == Qt::Key_Tab;
        const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        const auto others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
        if ((!tab && !enter) || others != Qt::NoModifier || area.isReadOnly()) {
            return false;
        }
        EditKey key{tab ? EditKey::Which::tab : EditKey::Which::enter,
                    back || event.modifiers().testFlag(Qt::ShiftModifier)};
        owner.EditKeyDown.raise(key);
        return key.handled;
    }

    void typed(const QString& letters) override { owner.Typed.raise(fromQt(letters)); }

    bool takes(const QMimeData& data) override {
        if (!TextBox::Native::bringsFiles(data)) {
            return data.hasText() || data.hasImage() || data.hasHtml();
        }
        bool taken = false;
        guarded([&] { taken = owner.takesFiles && owner.takesFiles(filesIn(data)); });
        return taken;
    }

    bool enter(const QMimeData& data) override {
        Incoming incoming = incomingFrom(data);
        owner.Entering.raise(incoming);
        return incoming.handled;
    }

    void painted() override { marks.paint(); }

    int positionAt(const QPoint& place) const { return area.cursorForPosition(place).position(); }

    std::size_t offsetOf(int position) const {
        const QString raw = area.document()->toRawText();
        return PositionCount(raw).offsetAt(position);
    }

    void fillMenu(QMenu& menu, const QPoint& place) override {
        TextMenu more{offsetOf(positionAt(place)), {}};
        owner.MenuOpening.raise(more);
        QAction* const first = menu.actions().isEmpty() ? nullptr : menu.actions().front();
        for (const TextMenu::Entry& entry : more.entries) {
            auto* const action = new QAction(toQt(entry.caption).replace('&', "&&"), &menu);
            action->setSeparator(entry.caption.empty());
            QObject::connect(action, &QAction::triggered,
                             [run = entry.run] { guarded([&run] { run(); }); });
            menu.insertAction(first, action);
        }
    }

    bool showToolTip(const QPoint& place, const QPoint& onScreen) override {
        const TextMarks::Mark* mark = marks.at(positionAt(place));
        if (mark == nullptr || mark->toolTip.isEmpty()) {
            QToolTip::hideText();
            return mark != nullptr;
        }
        QToolTip::showText(onScreen, mark->toolTip.toHtmlEscaped(), &area);
        return true;
    }

    QObject context; ///< for what is heard as long as this is there
    HtmlBox& owner;
    QPlainTextEdit& area;
    TextMarks marks;
    ChoiceList choices;
};

HtmlBox::HtmlBox(Container& container)
    : TextBox(container, Lines::many), hooks_(std::make_unique<Hooks>(*this)) {
    setForHtml();
    box().hooks = hooks_.get();
}

HtmlBox::~HtmlBox() {
    box().hooks = nullptr;
}

void HtmlBox::setMarks(MarkKind kind, const std::vector<TextMark>& marks) {
    const QString raw = marks.empty() ? QString() : hooks_->area.document()->toRawText();
    PositionCount starts(raw);
    PositionCount ends(raw);
    std::vector<TextMarks::Mark> placed;
    placed.reserve(marks.size());
    for (const TextMark& mark : marks) {
        placed.push_back({starts.positionAt(mark.start), ends.positionAt(mark.start + mark.length),
                          toQt(mark.toolTip)});
    }
    hooks_->marks.set(kind, std::move(placed));
}

std::vector<TextMark> HtmlBox::marks(MarkKind kind) const {
    const QString raw = hooks_->area.document()->toRawText();
    PositionCount count(raw);
    std::vector<TextMark> all;
    for (const TextMarks::Mark& mark : hooks_->marks.of(kind)) {
        const std::size_t start = count.offsetAt(mark.start);
        all.push_back({start, count.offsetAt(mark.end) - start, fromQt(mark.toolTip)});
    }
    return all;
}

CaretPlace HtmlBox::caretPlace() const {
    const QTextCursor cursor = hooks_->area.textCursor();
    const QString before = cursor.block().text().left(cursor.positionInBlock());
    return {cursor.blockNumber() + 1, static_cast<int>(before.toUcs4().size()) + 1};
}

Text HtmlBox::textBeforeCaret(int characters) const {
    QTextCursor cursor = hooks_->area.textCursor();
    const int end = cursor.position();
    cursor.setPosition(std::max(0, end - characters));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return fromQt(cursor.selectedText().replace(QChar::ParagraphSeparator, QStringLiteral("\r\n")));
}

bool HtmlBox::isAtTag() const {
    const QTextCursor cursor = hooks_->area.textCursor();
    const QString line = cursor.block().text();
    const int place = cursor.positionInBlock();
    const bool atEdge =
        (place > 0 && line[place - 1] == '>') || (place < line.size() && line[place] == '<');
    const auto before = QStringView(line).left(place);
    return atEdge || before.lastIndexOf(u'<') > before.lastIndexOf(u'>');
}

void HtmlBox::offer(const std::vector<Text>& choices, int typed, bool first) {
    QStringList shown;
    for (const Text& choice : choices) {
        shown += toQt(choice);
    }
    hooks_->choices.show(shown, typed, first);
}

std::vector<Text> HtmlBox::offered() const {
    std::vector<Text> all;
    for (const QString& choice : hooks_->choices.choices()) {
        all.push_back(fromQt(choice));
    }
    return all;
}

} // namespace ui
