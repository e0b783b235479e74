#pragma once

#include "editor/Snippets.h"
#include "ui/Button.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace editor {

/// The rows of the dialog's list.
class SnippetRows : public ui::ListSource {
public:
    int rowCount() const override { return static_cast<int>(names.size()); }
    Text cell(int row, int /*column*/) const override {
        return names[static_cast<std::size_t>(row - 1)];
    }

    std::vector<Text> names;
};

/// Asks for a snippet by its name; keeps new ones, and drops old ones.
class dlgSnippets : public ui::Window {
public:
    /// `selected` is what a new one would hold. The snippets are not owned.
    dlgSnippets(ui::Window& owner, Snippets& snippets, text::TextView selected);

    Text chosen; ///< the name; empty unless one is to be inserted

private:
    SnippetRows rows_; // before the list

public:
    ui::TextBox txtName{*this};
    ui::Label lblName{*this, "&Name:", &txtName};
    ui::ListView lvNames;
    ui::TextBox txtText{*this, ui::TextBox::Lines::many};
    ui::Button cmdInsert{*this, "&Insert"};
    ui::Button cmdKeep{*this, "&Keep Selection"};
    ui::Button cmdDelete{*this, "&Delete"};
    ui::Button cmdCancel{*this, "Cancel"};

    void txtName_Change() { fill(); }
    void txtName_KeyDown(ui::Key& key);
    void lvNames_ItemClick(int row);
    void lvNames_DblClick(int row);
    void cmdInsert_Click();
    void cmdKeep_Click();
    void cmdDelete_Click();
    void cmdCancel_Click() { close(); }

private:
    void arrange();
    void fill();
    void showText();
    Text current() const;
    void tell(const std::error_code& error);

    Snippets& snippets_;
    Text selected_;
};

} // namespace editor
