#include "app/ProgramHelp.h"

#include "model/Helper.h"
#include "platform/HelpViewer.h"
#include "ui/Prompter.h"
#include "ui/ShowHelp.h"

namespace app {

using ui::Prompter;

ProgramHelp::ProgramHelp(ui::Window& window, ui::Settings& settings,
                         const std::filesystem::path& programFolder)
    : window_(window), settings_(settings), helpFile_(programFolder / "HTML Topicsmith.chm") {
    ui::takeOverHelp([this](int context) { showPage(context); });
}

ProgramHelp::~ProgramHelp() {
    ui::takeOverHelp({});
}

void ProgramHelp::tellWhenMissing() const {
    if (!model::fileExists(helpFile_)) {
        Prompter::current().ask(&window_, {"WARNING: Missing Help File", "HTML Topicsmith",
                                           ui::Buttons::ok, ui::QuestionIcon::information});
    }
}

void ProgramHelp::showPage(int context) {
    const auto number = static_cast<unsigned>(context);
    if (platform::viewHelpPage(helpFile_, number)) {
        return;
    }
    if (openViewer()) {
        viewer_->showContext(number);
        viewer_->activate();
    }
}

void ProgramHelp::showIndex() {
    if (platform::viewHelpIndex(helpFile_)) {
        return;
    }
    if (openViewer()) {
        viewer_->activate();
        viewer_->showIndex();
    }
}

/// With the program's help in it; false, and said so, when that cannot be read.
bool ProgramHelp::openViewer() {
    const bool isNew = viewer_ == nullptr || !viewer_->isVisible();
    if (isNew) {
        viewer_ = std::make_unique<help::frmHelp>(settings_);
        viewer_->Closed.connect([this] { ui::Window::discard(std::move(viewer_)); });
    }
    const bool isOpen = viewer_->book() != nullptr && viewer_->book()->path() == helpFile_;
    if (!isOpen && !viewer_->openBook(helpFile_)) {
        if (isNew) {
            viewer_.reset();
        }
        Prompter::current().tell(&window_, help::unreadableMessage(helpFile_));
        return false;
    }
    viewer_->show();
    return true;
}

} // namespace app
