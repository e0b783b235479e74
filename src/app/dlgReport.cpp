#include "app/dlgReport.h"

#include "model/HelpContext.h"

namespace app {

dlgReport::dlgReport(ui::Window& owner) : Window(Kind::dialog, windowName, &owner) {
    setCaption("Generation Report");
    setHelpContext(model::reportHelp);
    txtReport.setReadOnly();
    txtReport.setAccessibleName("Generation Report");
    OKButton.setDefault();
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(OKButton);
    auto content = ui::Layout::column();
    content.add(txtReport, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(7500, 6000);
    OKButton.setFocus();
    UI_ON(OKButton, Click);
}

} // namespace app
