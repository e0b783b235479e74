#pragma once

#include "app/OutlineFolds.h"
#include "generate/TopicSigns.h"
#include "model/Project.h"
#include "ui/ListView.h"

namespace app {

/// The topics of a project as the rows of the outline list.
class OutlineRows : public ui::ListSource {
public:
    /// Nothing is owned.
    OutlineRows(const model::Project& project, const OutlineFolds& folds,
                const generate::TopicSigns& signs)
        : project_(project), folds_(folds), signs_(signs) {}

    static constexpr int titleColumn = 2;
    static std::vector<ui::Column> columns();

    using Field = text::Text model::Topic::*;
    static Field field(int column);

    /// Which can be edited in the list, and which take the room that is left.
    static std::vector<int> editableColumns();
    static std::vector<int> fillColumns();

    /// What an edit of the column is called when it can be taken back.
    static text::TextView undoName(int column);

    int rowCount() const override { return project_.outline().count(); }
    text::Text cell(int row, int column) const override;
    text::Text toolTip(int row, int column) const override;
    int indent(int row, int column) const override;
    std::optional<bool> folded(int row) const override;
    bool canFold() const override { return true; }
    int possibleShift(int row, int levels) const override;
    bool accepts(int column, const text::Text& text) const override;
    std::vector<text::Text> choices(int column) const override;
    bool hasSign(int row, int column) const override;

private:
    const model::Project& project_;
    const OutlineFolds& folds_;
    const generate::TopicSigns& signs_;
};

} // namespace app
