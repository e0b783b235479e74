#pragma once

#include "editor/forms/WritingAids.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Window.h"

namespace editor {

/// Asks which helps are wanted while a text is written.
class dlgWritingAids : public ui::Window {
public:
    dlgWritingAids(ui::Window& owner, const AidChoice& now);

    bool accepted = false; ///< closed with OK
    AidChoice choice;

    ui::CheckBox chkSpelling{*this, "&Underline words that the dictionary does not know"};
    ui::CheckBox chkFaults{*this, "Underline &tags that are not closed, or cross others"};
    ui::CheckBox chkPairs{*this, "&Show the tag that belongs to the one at the caret"};
    ui::CheckBox chkClosing{*this, "&Complete end tags after </"};
    ui::CheckBox chkCompletion{*this, "&Offer tags, attributes, pages, anchors and pictures"};
    ui::Button OKButton{*this, "OK"};
    ui::Button CancelButton{*this, "Cancel"};

    void OKButton_Click();
    void CancelButton_Click() { close(); }
};

} // namespace editor
