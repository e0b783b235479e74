#include "ui/qt/ListModel.h"

#include <algorithm>

#include <QMimeData>

#include "text/Unicode.h"
#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

/// As much of a text as is of use in one row.
Text beginning(const Text& text) {
    return Text(text::wholeCharacters(text, 300));
}

/// The toolkit takes what looks like HTML for HTML, and a topic may well be about it.
QString plainToolTip(const Text& text) {
    const QString plain = toQt(beginning(text)).toHtmlEscaped().replace('\n', "<br>");
    return plain.isEmpty() ? plain : "<p>" + plain + "</p>";
}

} // namespace

ListModel::ListModel(const std::vector<Column>& columns, const ListSource& source)
    : columns_(columns), source_(source) {}

void ListModel::rowChanged(int row) {
    emit dataChanged(index(row - 1, 0), index(row - 1, columnCount() - 1));
}

void ListModel::rowInserting(int row) {
    beginInsertRows({}, row - 1, row - 1);
}

void ListModel::rowInserted() {
    endInsertRows();
}

void ListModel::rowRemoving(int row) {
    beginRemoveRows({}, row - 1, row - 1);
}

void ListModel::rowRemoved() {
    endRemoveRows();
}

void ListModel::rowsReplacing() {
    beginResetModel();
}

void ListModel::rowsReplaced() {
    endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : source_.rowCount();
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const int row = index.row() + 1;
    switch (role) {
    case Qt::DisplayRole:
        return toQt(text::oneLine(beginning(source_.cell(row, index.column()))));
    case Qt::EditRole:
        return toQt(source_.cell(row, index.column()));
    case foldRole: {
        const bool isIndented = source_.indent(row, index.column()) >= 0;
        const auto folded = isIndented ? source_.folded(row) : std::nullopt;
        return folded ? QVariant(*folded) : QVariant();
    }
    case canFoldRole:
        return source_.canFold();
    case signRole:
        return source_.hasSign(row, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(source_.toolTip(row, index.column()));
    case Qt::AccessibleTextRole: // what is drawn, in words
        return source_.hasSign(row, index.column())
                   ? QVariant(toQt(text::oneLine(source_.toolTip(row, index.column()))))
                   : QVariant();
    case Qt::AccessibleDescriptionRole: {
        const QVariant isFolded = data(index, foldRole);
        if (!isFolded.isValid()) {
            return {};
        }
        return isFolded.toBool() ? QStringLiteral("folded") : QStringLiteral("unfolded");
    }
    case Qt::CheckStateRole:
        return hasBox(index) ? QVariant(*source_.checked(row) ? Qt::Checked : Qt::Unchecked)
                             : QVariant();
    case indentRole:
        return indentOf(row, index.column());
    default:
        return {};
    }
}

/// The box shows what the source says; the click goes to whoever owns that.
bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role == Qt::EditRole) {
        const Text text = fromQt(value.toString());
        if (text != source_.cell(index.row() + 1, index.column())) {
            cellEdited(index.row() + 1, index.column(), text);
        }
        return true;
    }
    if (role != Qt::CheckStateRole || !hasBox(index)) {
        return false;
    }
    boxClicked(index.row() + 1);
    return true;
}

bool ListModel::hasBox(const QModelIndex& index) const {
    return index.column() == 0 && source_.checked(index.row() + 1).has_value();
}

int ListModel::indentOf(int row, int column) const {
    const int indent = source_.indent(row, column);
    return indent < 0 ? indent : toPixels(indent);
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    const Column& column = columns_[static_cast<std::size_t>(section)];
    switch (role) {
    case Qt::DisplayRole:
        return toQt(column.caption);
    case Qt::ToolTipRole:
        return toQt(column.toolTip);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled; // rows are dropped between rows
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsDragEnabled, draggable);
    flags.setFlag(Qt::ItemIsEditable,
                  std::find(editable.begin(), editable.end(), index.column()) != editable.end());
    flags.setFlag(Qt::ItemIsUserCheckable, hasBox(index));
    return flags;
}

QByteArray ListModel::listMark() const {
    return QByteArray::number(reinterpret_cast<quintptr>(this)) + ':';
}

QMimeData* ListModel::mimeData(const QModelIndexList& indexes) const {
    auto* data = new QMimeData;
    data->setData(rowFormat, listMark() + QByteArray::number(indexes.value(0).row() + 1));
    return data;
}

int ListModel::draggedRow(const QMimeData& data) const {
    const QByteArray row = data.data(rowFormat);
    return row.startsWith(listMark()) ? row.mid(listMark().size()).toInt() : 0;
}

} // namespace ui
