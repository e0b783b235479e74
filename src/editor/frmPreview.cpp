#include "editor/frmPreview.h"

#include "model/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/WindowPlace.h"

namespace editor {

namespace {

constexpr const char* section = "Preview";
constexpr int minimumWidth = 5000;
constexpr int minimumHeight = 3000;

} // namespace

frmPreview::frmPreview(ui::Window& owner, ui::Settings& settings)
    : Window(Kind::main, windowName, &owner), settings_(settings) {
    setCaption("Preview Help Topic");
    setHelpContext(model::previewHelp);
    setMinimumSize(minimumWidth, minimumHeight);
    ui::restorePlace(*this, settings_, section, minimumWidth, minimumHeight);
    brwPreview.setAccessibleName("Preview");
    UI_ON(brwPreview, Refused);
    UI_ON(closeCommand, Click);
}

void frmPreview::preview(model::TextView title, const std::filesystem::path& file,
                         const std::filesystem::path& projectFolder) {
    setCaption("Preview of: " + model::Text(title));
    brwPreview.navigate(file, projectFolder);
    show();
    activate();
}

void frmPreview::brwPreview_Refused() {
    ui::Prompter::current().ask(this,
                                {"Links are Disabled in Preview Mode", "HTML Topicsmith Preview"});
}

void frmPreview::Resize() {
    if (state() != ui::WindowState::minimised) {
        brwPreview.place(64, 64, width() - 128, height() - 512);
    }
}

bool frmPreview::mayClose() {
    ui::storePlace(*this, settings_, section);
    return true;
}

} // namespace editor
