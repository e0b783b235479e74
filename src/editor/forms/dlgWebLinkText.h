#pragma once

#include "ui/Button.h"
#include "ui/Window.h"

namespace editor {

/// Asks for the text and the address of a link.
class dlgWebLinkText : public ui::Window {
public:
    explicit dlgWebLinkText(ui::Window& owner);

    // Both empty unless closed with OK.
    text::Text webLinkText;
    text::Text webLinkAddress;

    ui::TextBox txtWebText{*this};
    ui::TextBox txtWebAddress{*this};
    ui::Label lblWebText{*this, "Enter text for the web link:", &txtWebText};
    ui::Label lblWebAddress{*this, "Enter web address:", &txtWebAddress};
    ui::Button OKButton{*this, "OK"};
    ui::Button CancelButton{*this, "Cancel"};

    void txtWebAddress_GotFocus();
    void OKButton_Click();
    void CancelButton_Click() { close(); }
};

} // namespace editor
