#include "editor/forms/dlgPictureName.h"

#include "ui/HelpContext.h"

namespace editor {

dlgPictureName::dlgPictureName(ui::Window& owner, text::TextView taken, text::TextView proposed)
    : Window(Kind::dialog, "dlgPictureName", &owner) {
    setCaption("Name of a Picture");
    setHelpContext(ui::pasteHelp);
    lblTaken.setCaption("The project has another picture that is called \"" + text::Text(taken)
                        + "\".");
    lblTaken.setWrapped();
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(OKButton).add(CancelButton);
    auto content = ui::Layout::column();
    content.add(lblTaken).addSpace(90).add(lblName).add(txtName);
    content.addStretch().add(std::move(buttons));
    setLayout(std::move(content));
    setSizeForTexts(6300, 2400);
    txtName.setText(proposed);
    txtName.selectAll();
    txtName.setFocus();
    OKButton.setDefault();
    UI_ON(OKButton, Click);
    UI_ON(CancelButton, Click);
}

void dlgPictureName::OKButton_Click() {
    name = text::trim(txtName.text());
    close();
}

} // namespace editor
