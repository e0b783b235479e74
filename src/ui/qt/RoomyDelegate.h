#pragma once

#include <QStyledItemDelegate>

namespace ui {

/// Gives the rows of lists and trees some air, the same for all rows.
class RoomyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int roomBetweenRows = 7;
        return {QStyledItemDelegate::sizeHint(option, index).width(),
                option.fontMetrics.height() + roomBetweenRows};
    }
};

} // namespace ui
