#pragma once

#include <vector>

#include "tools/TextPattern.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/HtmlBox.h"
#include "ui/Panel.h"
#include "ui/Timer.h"

namespace editor {

using text::Text;

/// Finds and replaces in one body. All places are marked while the bar is open.
class FindBar : public ui::Panel {
public:
    /// Nothing is owned. Closed at first.
    FindBar(ui::Container& container, ui::HtmlBox& body);

    /// Looks for what is selected, if that is a part of a line, or else for what it last did.
    void open(bool forReplacing);

    /// Back to the text, where the last place stays selected.
    void close();
    bool isOpen() const { return open_; }

    /// To the next place, or with -1 the one before; behind the last comes the first.
    void go(int step);

    /// The text is another one now; it is searched when nobody has typed for a moment.
    void textChanged();

    ui::Event<> Toggled; ///< it needs room, or no more

    ui::TextBox txtFind{*this};
    ui::TextBox txtReplace{*this};
    ui::Label lblFind{*this, "Fi&nd:", &txtFind};
    ui::Label lblReplace{*this, "Re&place with:", &txtReplace};
    ui::Label lblCount{*this, ""};
    ui::CheckBox chkCase{*this, "&Match case"};
    ui::CheckBox chkWords{*this, "&Whole words"};
    ui::CheckBox chkExpression{*this, "&Regular expression"};
    ui::Button cmdPrevious{*this, "Previous"};
    ui::Button cmdNext{*this, "Next"};
    ui::Button cmdReplace{*this, "Replace"};
    ui::Button cmdReplaceAll{*this, "Replace All"};
    ui::Button cmdClose{*this, "Close"};

    void txtFind_Change() { look(true); }
    void txtFind_KeyDown(ui::Key& key);
    void txtReplace_KeyDown(ui::Key& key);
    void chkCase_Click() { look(true); }
    void chkWords_Click() { look(true); }
    void chkExpression_Click() { look(true); }
    void cmdPrevious_Click() { go(-1); }
    void cmdNext_Click() { go(1); }
    void cmdReplace_Click();
    void cmdReplaceAll_Click();
    void cmdClose_Click() { close(); }

private:
    void arrange();
    void look(bool showFirst);
    void catchUp();
    void findAll(const Text& text);
    void showCount();
    void select(std::size_t place);
    std::vector<Text> replacements(const Text& text);

    ui::HtmlBox& body_;
    bool open_ = false;
    std::vector<ui::TextMark> places_;
    Text problem_;            ///< with the expression, or with the replacement
    std::size_t from_ = 0;    ///< where the search began
    std::size_t current_ = 0; ///< counts from 1; 0 for none
    ui::Timer pause_;
};

} // namespace editor
