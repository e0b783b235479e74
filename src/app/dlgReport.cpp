#include "app/dlgReport.h"

#include <algorithm>

namespace app {

dlgReport::dlgReport(ui::Window& owner, text::TextView caption, ui::HelpContext context,
                     bool hasPages)
    : Window(Kind::dialog, windowName, &owner) {
    setCaption(caption);
    setHelpContext(context);
    txtReport.setForChoosingLines();
    txtReport.setAccessibleName(caption);
    OKButton.setDefault();
    auto buttons = ui::Layout::row();
    cmdPage.setVisible(hasPages);
    cmdFolder.setVisible(hasPages);
    buttons.add(cmdCopy).add(cmdTopic).add(cmdPage).add(cmdFolder).addStretch().add(OKButton);
    auto content = ui::Layout::column();
    content.add(txtReport, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(7500, 6000);
    OKButton.setFocus();
    UI_ON(txtReport, KeyDown);
    UI_ON(txtReport, DblClick);
    UI_ON(cmdCopy, Click);
    UI_ON(cmdTopic, Click);
    UI_ON(cmdPage, Click);
    UI_ON(cmdFolder, Click);
    UI_ON(OKButton, Click);
}

void dlgReport::cmdCopy_Click() {
    clipboard_.setText(txtReport.text());
}

void dlgReport::txtReport_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter && key.plain()) {
        cmdTopic_Click();
        key.handled = true;
    }
}

text::Text dlgReport::caretLine() const {
    const text::Text text = txtReport.countedText();
    const std::size_t caret = std::min(txtReport.selection().start, text.size());
    const std::size_t before = caret == 0 ? text::Text::npos : text.rfind('\n', caret - 1);
    const std::size_t start = before == text::Text::npos ? 0 : before + 1;
    return text.substr(start, text.find('\r', start) - start);
}

} // namespace app
