#include "editor/forms/dlgWritingAids.h"

#include "ui/HelpContext.h"

namespace editor {

dlgWritingAids::dlgWritingAids(ui::Window& owner, const AidChoice& now)
    : Window(Kind::dialog, "dlgWritingAids", &owner), choice(now) {
    setCaption("Writing Aids");
    setHelpContext(ui::writingAidsHelp);
    chkSpelling.setChecked(now.spelling);
    chkFaults.setChecked(now.faults);
    chkPairs.setChecked(now.pairs);
    chkClosing.setChecked(now.closing);
    chkCompletion.setChecked(now.completion);
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(OKButton).add(CancelButton);
    auto content = ui::Layout::column();
    content.add(chkSpelling).add(chkFaults).add(chkPairs).add(chkClosing).add(chkCompletion);
    content.addStretch().add(std::move(buttons));
    setLayout(std::move(content));
    setSize(6600, 3300);
    OKButton.setDefault();
    chkSpelling.setFocus();
    UI_ON(OKButton, Click);
    UI_ON(CancelButton, Click);
}

void dlgWritingAids::OKButton_Click() {
    accepted = true;
    choice = {chkSpelling.checked(), chkFaults.checked(), chkPairs.checked(), chkClosing.checked(),
              chkCompletion.checked()};
    close();
}

} // namespace editor
