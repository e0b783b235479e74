#pragma once

#include "ui/Button.h"
#include "ui/Window.h"

namespace app {

/// Shows the report of a generation run; stays open beside the main window.
class dlgReport : public ui::Window {
public:
    static constexpr const char* windowName = "dlgReport";

    explicit dlgReport(ui::Window& owner);

    ui::TextBox txtReport{*this, ui::TextBox::Lines::many};
    ui::Button OKButton{*this, "OK"};

    void OKButton_Click() { close(); }
};

} // namespace app
