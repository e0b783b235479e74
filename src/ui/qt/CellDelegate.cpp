#include "ui/qt/CellDelegate.h"

#include <algorithm>

#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QValidator>

#include "ui/Prompter.h"
#include "ui/qt/ListModel.h"
#include "ui/qt/ListWidget.h"
#include "ui/qt/RoomyDelegate.h"
#include "ui/qt/TextBoxNative.h"

namespace ui {

namespace {

/// Keeps out of a cell what its field would keep out. What stands there already stays, and can be
/// taken out piece by piece.
class CellValidator : public QValidator {
public:
    CellValidator(QLineEdit& line, const ListModel& model, int column)
        : QValidator(&line), model_(model), column_(column) {
        connect(&line, &QLineEdit::textChanged, this, [this](const QString& now) { now_ = now; });
        connect(&line, &QLineEdit::inputRejected, this, [] { Prompter::current().beep(); });
    }

    State validate(QString& text, int& /*caret*/) const override {
        const Difference entry = differenceOf(now_, text);
        const QString entered = text.mid(entry.start, entry.inserted);
        return model_.accepts(column_, fromQt(entered)) ? Acceptable : Invalid;
    }

private:
    const ListModel& model_;
    int column_;
    QString now_;
};

/// Tells a choice from the open list, which is final, from one by a key.
class ChoiceBox : public QComboBox {
public:
    using QComboBox::QComboBox;
    bool wasOpened = false;

    void showPopup() override {
        wasOpened = true;
        QComboBox::showPopup();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        wasOpened = false;
        QComboBox::keyPressEvent(event);
    }
};

/// Draws indented cells: the room of a picture that is not there moves the text in, and holds the
/// triangle of a row that can be folded. A sign stands at the end of a cell.
class IndentingDelegate : public RoomyDelegate {
public:
    using RoomyDelegate::RoomyDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        RoomyDelegate::paint(painter, option, index);
        if (const QVariant folded = index.data(ListModel::foldRole); folded.isValid()) {
            const int indent = std::max(index.data(ListModel::indentRole).toInt(), 0);
            QStyleOption arrow;
            constexpr int size = 12;
            arrow.rect = QRect(option.rect.left() + indent + 2, option.rect.center().y() - size / 2,
                               size, size);
            arrow.palette = option.palette;
            arrow.state = QStyle::State_Enabled;
            option.widget->style()->drawPrimitive(folded.toBool() ? QStyle::PE_IndicatorArrowRight
                                                                  : QStyle::PE_IndicatorArrowDown,
                                                  &arrow, painter, option.widget);
        }
        if (index.data(ListModel::signRole).toBool()) {
            constexpr int size = 8;
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(option.palette.color(QPalette::Base));
            painter->setBrush(QColor("#d9730d"));
            painter->drawEllipse(option.rect.right() - size - 3,
                                 option.rect.center().y() - size / 2, size, size);
            painter->restore();
        }
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        const auto& model = static_cast<const ListModel&>(*index.model());
        if (const std::vector<Text> choices = model.choices(index.column()); !choices.empty()) {
            return makeChoice(parent, choices);
        }
        QWidget* editor = RoomyDelegate::createEditor(parent, option, index);
        if (auto* line = qobject_cast<QLineEdit*>(editor)) {
            line->setValidator(new CellValidator(*line, model, index.column()));
        }
        return editor;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        if (auto* choice = qobject_cast<QComboBox*>(editor)) {
            choice->setCurrentText(index.data(Qt::EditRole).toString());
        } else {
            RoomyDelegate::setEditorData(editor, index);
        }
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        if (const auto* choice = qobject_cast<QComboBox*>(editor)) {
            model->setData(index, choice->currentText(), Qt::EditRole);
        } else {
            RoomyDelegate::setModelData(editor, model, index);
        }
    }

private:
    QWidget* makeChoice(QWidget* parent, const std::vector<Text>& choices) const {
        auto* self = const_cast<IndentingDelegate*>(this); // the toolkit's functions are const
        auto* box = new ChoiceBox(parent);
        for (const Text& choice : choices) {
            box->addItem(toQt(choice));
        }
        connect(box, &QComboBox::activated, self, [self, box] {
            if (box->wasOpened) {
                emit self->commitData(box);
                emit self->closeEditor(box);
            }
        });
        return box;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        RoomyDelegate::initStyleOption(option, index);
        if (const int indent = index.data(ListModel::indentRole).toInt(); indent >= 0) {
            const int triangle =
                index.data(ListModel::canFoldRole).toBool() ? ListWidget::foldRoom : 0;
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->decorationSize = QSize(std::max(indent + triangle, 1), 1);
        }
    }
};

} // namespace

QAbstractItemDelegate* makeCellDelegate(QObject* parent) {
    return new IndentingDelegate(parent);
}

} // namespace ui
