#include "app/dlgReport.h"

namespace app {

dlgReport::dlgReport(ui::Window& owner, text::TextView caption, ui::HelpContext context)
    : Window(Kind::dialog, windowName, &owner) {
    setCaption(caption);
    setHelpContext(context);
    txtReport.setReadOnly();
    txtReport.setAccessibleName(caption);
    OKButton.setDefault();
    auto buttons = ui::Layout::row();
    buttons.add(cmdCopy).addStretch().add(OKButton);
    auto content = ui::Layout::column();
    content.add(txtReport, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(7500, 6000);
    OKButton.setFocus();
    UI_ON(cmdCopy, Click);
    UI_ON(OKButton, Click);
}

void dlgReport::cmdCopy_Click() {
    clipboard_.setText(txtReport.text());
}

} // namespace app
