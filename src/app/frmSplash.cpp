#include "app/frmSplash.h"

#include "platform/Version.h"

namespace app {

frmSplash::frmSplash(ui::Window& owner)
    : Window(Kind::splash, "frmSplash", &owner),
      lblVersion(*this, text::Text("Version ") + platform::version) {
    setCaption("HTML Topicsmith");
    lblProduct.setLarge();
    for (ui::Label* label : {&lblProduct, &lblVersion, &lblPurpose}) {
        label->setCentred();
    }
    auto content = ui::Layout::column();
    content.addSpace(300).add(imgProgram).addSpace(150).add(lblProduct).add(lblVersion);
    content.addSpace(150).add(lblPurpose).addSpace(300);
    setLayout(std::move(content));
    setMinimumSize(6300, 3900);
    UI_ON(tmrClose, Tick);
}

} // namespace app
