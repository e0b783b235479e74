#pragma once

#include "model/Project.h"
#include "ui/ListView.h"

namespace app {

/// The topics of a project as the rows of the outline list.
class OutlineRows : public ui::ListSource {
public:
    /// The project is not owned.
    explicit OutlineRows(const model::Project& project) : project_(project) {}

    static constexpr int titleColumn = 2;
    static std::vector<ui::Column> columns();

    int rowCount() const override { return project_.outline().count(); }
    text::Text cell(int row, int column) const override;
    text::Text toolTip(int row, int column) const override;
    int indent(int row, int column) const override;

private:
    const model::Project& project_;
};

} // namespace app
