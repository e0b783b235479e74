#include "editor/forms/frmPreview.h"

#include <algorithm>

#include "editor/PreviewPage.h"
#include "ui/HelpContext.h"
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
    setHelpContext(ui::previewHelp);
    setMinimumSize(minimumWidth, minimumHeight);
    ui::restorePlace(*this, settings_, section, minimumWidth, minimumHeight);
    if (settings_.get(section, "Left", "").empty()) {
        placeBeside(owner);
    }
    brwPreview.setAccessibleName("Preview");
    brwPreview.keepInView(caretId);
    UI_ON(brwPreview, Refused);
    UI_ON(closeCommand, Click);
}

std::error_code frmPreview::preview(text::TextView title, text::TextView page,
                                    const std::filesystem::path& file,
                                    const std::filesystem::path& projectFolder) {
    if (const std::error_code error = file_.write(file, page)) {
        return error;
    }
    page_ = page;
    setCaption("Preview of: " + text::Text(title));
    brwPreview.navigate(file, projectFolder);
    showUnfocused();
    return {};
}

void frmPreview::refresh(text::TextView title, text::TextView page,
                         const std::filesystem::path& projectFolder) {
    const std::filesystem::path file = file_.path();
    if (page != page_ && !file_.write(file, page)) {
        page_ = page;
        setCaption("Preview of: " + text::Text(title));
        brwPreview.navigate(file, projectFolder);
    }
}

/// To the right of the editor or to its left; where neither has room, as far to the right as the
/// screen goes.
void frmPreview::placeBeside(const ui::Window& editor) {
    constexpr int gap = 150; // for the frames
    const int right = editor.left() + editor.width() + gap;
    const int left = editor.left() - width() - gap;
    const int last = std::max(screenWidth() - width() - gap, 0);
    setPosition(right <= last || left < 0 ? std::min(right, last) : left, editor.top());
}

void frmPreview::brwPreview_Refused() {
    ui::Prompter::current().ask(this,
                                {"Links are Disabled in Preview Mode", "HTML Topicsmith Preview"});
}

void frmPreview::Resize() {
    if (state() != ui::WindowState::minimised) {
        brwPreview.place(0, contentTop(), width(), height() - contentTop());
    }
}

bool frmPreview::mayClose() {
    ui::storePlace(*this, settings_, section);
    file_.remove();
    return true;
}

} // namespace editor
