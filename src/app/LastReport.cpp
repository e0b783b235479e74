#include "app/LastReport.h"

namespace app {

dlgReport& LastReport::begin(text::TextView caption, ui::HelpContext context) {
    report_ = std::make_unique<dlgReport>(owner_, caption, context);
    report_->Closed.connect([this] { ui::Window::discard(std::move(report_)); });
    return *report_;
}

void LastReport::show(text::TextView caption, ui::HelpContext context, const text::Text& text) {
    dlgReport& report = begin(caption, context);
    report.txtReport.setText(text);
    report.show();
}

} // namespace app
