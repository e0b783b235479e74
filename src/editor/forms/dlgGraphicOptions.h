#pragma once

#include "editor/References.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Frame.h"
#include "ui/ImageCombo.h"
#include "ui/Window.h"

namespace editor {

/// Asks how a picture is to be shown.
class dlgGraphicOptions : public ui::Window {
public:
    /// Shows the options of the last picture, but for its title.
    dlgGraphicOptions(ui::Window& owner, const GraphicOptions& last);

    bool accepted = false; ///< closed with OK
    GraphicOptions options;

    ui::TextBox txtBorder{*this};
    ui::Label lblBorder{*this, "Border Width", &txtBorder};
    ui::CheckBox chkAlignment{*this, "Alignment"};
    ui::ImageCombo cboAlignment{*this};
    ui::Frame fraSpacing{*this, "Spacing Options"};
    ui::CheckBox chkVertical{fraSpacing, "Vertical Spacing"};
    ui::TextBox txtVertical{fraSpacing};
    ui::CheckBox chkHorizontal{fraSpacing, "Horizontal Spacing"};
    ui::TextBox txtHorizontal{fraSpacing};
    ui::TextBox txtTitle{*this};
    ui::Label lblTitle{*this, "Title:", &txtTitle};
    ui::Button OKButton{*this, "OK"};
    ui::Button CancelButton{*this, "Cancel"};

    void chkAlignment_Click() { enableFields(); }
    void chkVertical_Click() { enableFields(); }
    void chkHorizontal_Click() { enableFields(); }
    void txtBorder_GotFocus() { txtBorder.selectAll(); }
    void txtVertical_GotFocus() { txtVertical.selectAll(); }
    void txtHorizontal_GotFocus() { txtHorizontal.selectAll(); }
    void OKButton_Click();
    void CancelButton_Click() { close(); }

private:
    void arrange();
    void fill();
    void enableFields();
};

} // namespace editor
