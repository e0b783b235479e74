#pragma once

#include <optional>
#include <vector>

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

class Menu;

/// Where a list takes what it shows. Rows count from 1, columns from 0.
class ListSource {
public:
    virtual ~ListSource() = default;
    virtual int rowCount() const = 0;
    virtual Text cell(int row, int column) const = 0;
    virtual Text toolTip(int /*row*/, int /*column*/) const { return {}; }

    /// How far a cell's text is moved in, in twips; -1 in columns without such.
    virtual int indent(int /*row*/, int /*column*/) const { return -1; }

    /// Whether what lies below a row is folded away, shown by a triangle before the indented text;
    /// nothing for rows without anything below.
    virtual std::optional<bool> folded(int /*row*/) const { return {}; }
    virtual bool canFold() const { return false; }

    /// How many levels deeper, or higher where negative, a row can go of those for which it is
    /// dragged sideways.
    virtual int possibleShift(int /*row*/, int /*levels*/) const { return 0; }

    /// Whether a text may come to stand in a cell that is edited, and what it is chosen from; empty
    /// where it is typed.
    virtual bool accepts(int /*column*/, const Text& /*text*/) const { return true; }
    virtual std::vector<Text> choices(int /*column*/) const { return {}; }

    /// Whether a cell shows the sign that something is wrong; its tool tip says what.
    virtual bool hasSign(int /*row*/, int /*column*/) const { return false; }

    /// Whether the box before the row is ticked; nothing where there is no box.
    virtual std::optional<bool> checked(int /*row*/) const { return {}; }
};

/// The indent of a row on a level from 1; a level below counts as the first.
constexpr int indentOfLevel(int level) {
    constexpr int perLevel = 210;
    return level > 1 ? (level - 1) * perLevel : 0;
}

struct Column {
    Text caption;
    int width; ///< in twips
    Text toolTip = {};
};

/// A list with columns and one selected row. It asks its source for the cells that are in view and
/// must be told what happened there.
class ListView : public Control {
public:
    /// The source is not owned and must outlive the list.
    ListView(Container& container, const std::vector<Column>& columns, const ListSource& source);

    // What happens in the source. Rows that come, go or become others are told of before and after.
    void rowChanged(int row);
    void rowInserting(int row);
    void rowInserted();
    void rowRemoving(int row);
    void rowRemoved();
    void rowsReplacing(); ///< all of them
    void rowsReplaced();

    /// -1 for none. A row that came or went above it takes the selection along.
    int selected() const;
    void select(int row); ///< brings it into view, too

    /// Where several can be selected; the one of selected() is among them.
    void allowSeveral();
    std::vector<int> selectedRows() const;
    void selectAlso(const std::vector<int>& rows);

    /// For each row whether it is left out; after rows were replaced, all are shown.
    void setHidden(const std::vector<bool>& hidden);

    void redraw(); ///< all that is in view

    /// Cells of these columns can be edited in their place, see CellEdited: with a second click, or
    /// with F2, which begins with the cell that was clicked last in the row, otherwise in the
    /// search column. Tab goes on to the next one of the row.
    void setEditable(std::vector<int> columns);

    /// These share the room that the columns leave, after the search column got what it needs; the
    /// last column has all of it otherwise.
    void setFillColumns(std::vector<int> columns);
    void fitColumns(); ///< when its texts may be others

    // The widths of the columns themselves, in twips, whatever room there is.
    std::vector<int> columnWidths() const;
    void setColumnWidths(const std::vector<int>& widths);

    void setContextMenu(Menu& menu);
    void hideCaptions();

    /// Lets rows be dragged to other places, see RowDragged.
    void setRowsDraggable();

    /// Where typed letters are looked for; the first one otherwise.
    void setSearchColumn(int column);

    Event<int> ItemClick;       ///< a row was chosen, by mouse or key
    Event<int> DblClick;        ///< or Enter, which is the default button's where nobody listens
    Event<int> ItemCheck;       ///< the box of a row was clicked, or the space bar pressed on it
    Event<int, int> RowDragged; ///< from one row to the place of another
    Event<int, int, bool> RowShifted; ///< row, levels, and whether Shift was held
    Event<int> FoldClick;             ///< the triangle, or the arrow key that folds or unfolds
    Event<int, int, const Text&> CellEdited; ///< row, column and what was typed

private:
    struct Native;
    Native& list() const;
    static std::unique_ptr<NativeWidget> make(ListView& list, Container& container,
                                              const std::vector<Column>& columns,
                                              const ListSource& source);
};

} // namespace ui
