#pragma once

#include <memory>

#include "app/dlgReport.h"

namespace app {

/// The window with the report of the last command that had one. A new one takes its place.
class LastReport {
public:
    /// The owner of the window is not owned.
    explicit LastReport(ui::Window& owner) : owner_(owner) {}

    /// Not shown yet.
    dlgReport& begin(text::TextView caption, ui::HelpContext context);

    void show(text::TextView caption, ui::HelpContext context, const text::Text& text);

private:
    ui::Window& owner_;
    std::unique_ptr<dlgReport> report_;
};

} // namespace app
