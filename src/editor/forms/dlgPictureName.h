#pragma once

#include "ui/Button.h"
#include "ui/Window.h"

namespace editor {

/// Asks for the name of a picture that comes into the project, where its own is another picture's.
class dlgPictureName : public ui::Window {
public:
    /// `proposed` is free.
    dlgPictureName(ui::Window& owner, text::TextView taken, text::TextView proposed);

    text::Text name; ///< empty unless closed with OK

    ui::TextBox txtName{*this};
    ui::Label lblTaken{*this, ""};
    ui::Label lblName{*this, "&Name of this picture:", &txtName};
    ui::Button OKButton{*this, "OK"};
    ui::Button CancelButton{*this, "Cancel"};

    void OKButton_Click();
    void CancelButton_Click() { close(); }
};

} // namespace editor
