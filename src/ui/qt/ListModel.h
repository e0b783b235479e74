#pragma once

#include <functional>

#include <QAbstractTableModel>

#include "ui/ListView.h"

namespace ui {

/// Hands the cells of a source to the toolkit.
class ListModel : public QAbstractTableModel {
public:
    /// The index data role of a cell's indentation, in pixels; -1 for none.
    static constexpr int indentRole = Qt::UserRole;
    static constexpr int foldRole = Qt::UserRole + 1; ///< see ListSource::folded()
    static constexpr int canFoldRole = Qt::UserRole + 2;
    static constexpr int signRole = Qt::UserRole + 3;
    static constexpr const char* rowFormat = "application/x-topicsmith-row";

    ListModel(const std::vector<Column>& columns, const ListSource& source);

    bool draggable = false;
    std::function<void(int row)> boxClicked;
    std::vector<int> editable; ///< columns
    std::function<void(int row, int column, const Text& text)> cellEdited;

    // As in ListView.
    void rowChanged(int row);
    void rowInserting(int row);
    void rowInserted();
    void rowRemoving(int row);
    void rowRemoved();
    void rowsReplacing();
    void rowsReplaced();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override { return {rowFormat}; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    /// See ListSource.
    int possibleShift(int row, int levels) const { return source_.possibleShift(row, levels); }
    bool accepts(int column, const Text& text) const { return source_.accepts(column, text); }
    std::vector<Text> choices(int column) const { return source_.choices(column); }

    /// The row that is dragged; 0 when it is something else, or from another list.
    int draggedRow(const QMimeData& data) const;

private:
    int indentOf(int row, int column) const;
    bool hasBox(const QModelIndex& index) const;
    QByteArray listMark() const;

    std::vector<Column> columns_;
    const ListSource& source_;
};

} // namespace ui
