#include "editor/forms/dlgWebLinkText.h"

#include "ui/HelpContext.h"

namespace editor {

dlgWebLinkText::dlgWebLinkText(ui::Window& owner) : Window(Kind::dialog, "dlgWebLinkText", &owner) {
    setCaption("Create a Web Link");
    setHelpContext(ui::linkDialogHelp);
    txtWebAddress.setText("http://");
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(OKButton).add(CancelButton);
    auto content = ui::Layout::column();
    content.add(lblWebText).add(txtWebText).addSpace(90);
    content.add(lblWebAddress).add(txtWebAddress).addStretch().add(std::move(buttons));
    setLayout(std::move(content));
    setSize(6300, 2400);
    OKButton.setDefault();
    txtWebText.setFocus();
    UI_ON(txtWebAddress, GotFocus);
    UI_ON(OKButton, Click);
    UI_ON(CancelButton, Click);
}

/// Behind "http://", and behind any address of usual length.
void dlgWebLinkText::txtWebAddress_GotFocus() {
    txtWebAddress.select(20, 0);
}

void dlgWebLinkText::OKButton_Click() {
    webLinkText = text::trim(txtWebText.text());
    webLinkAddress = text::trim(txtWebAddress.text());
    close();
}

} // namespace editor
