#pragma once

#include "ui/Image.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace app {

/// Product name and version, at the start of the program and from About; closed by a click or key
/// in any window, or by its timer.
class frmSplash : public ui::Window {
public:
    explicit frmSplash(ui::Window& owner);

    ui::Image imgProgram{*this, "Topicsmith", 1440};
    ui::Label lblProduct{*this, "HTML Topicsmith"};
    ui::Label lblVersion;
    ui::Label lblPurpose{*this, "An authoring tool for compiled HTML help"};
    ui::Timer tmrClose;

    void startTimer() { tmrClose.start(2000); }
    void tmrClose_Tick() { close(); }
};

} // namespace app
