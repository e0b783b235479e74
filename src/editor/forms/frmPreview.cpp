#include "editor/forms/frmPreview.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/CodePage.h"
#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/WindowPlace.h"

namespace editor {

namespace {

constexpr const char* section = "Preview";
constexpr int minimumWidth = 5000;
constexpr int minimumHeight = 3000;

/// One that is there may be open to others, or be a link to anywhere: it is no more.
std::error_code writePrivately(const std::filesystem::path& file, text::TextView page) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(std::filesystem::symlink_status(file, ignored))) {
        std::filesystem::remove(file, ignored);
    }
    const text::Bytes bytes = text::CodePage().encoded(page, text::Missing::reference);
    return platform::replaceFile(file, bytes.value, platform::Access::owner);
}

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
    UI_ON(brwPreview, Refused);
    UI_ON(closeCommand, Click);
}

frmPreview::~frmPreview() {
    removePage();
}

std::error_code frmPreview::preview(text::TextView title, text::TextView page,
                                    const std::filesystem::path& file,
                                    const std::filesystem::path& projectFolder) {
    removePage();
    if (const std::error_code error = writePrivately(file, page)) {
        return error;
    }
    file_ = file;
    setCaption("Preview of: " + text::Text(title));
    brwPreview.navigate(file, projectFolder);
    showUnfocused();
    return {};
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

void frmPreview::removePage() {
    std::error_code ignored;
    if (!file_.empty()) {
        std::filesystem::remove(file_, ignored);
    }
    file_.clear();
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
    removePage();
    return true;
}

} // namespace editor
