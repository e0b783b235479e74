#include "app/frmMain.h"
#include "platform/HelpViewer.h"

// The program's own help in the main window.
namespace app {

void frmMain::mnuHelpContents_Click() {
    showHelpContext(helpContext());
}

void frmMain::showHelpContext(int context) {
    const auto number = static_cast<unsigned>(context);
    if (platform::viewHelpPage(helpFile_, number)) {
        return;
    }
    if (openHelp()) {
        help_->showContext(number);
        help_->activate();
    }
}

void frmMain::mnuHelpIndex_Click() {
    if (platform::viewHelpIndex(helpFile_)) {
        return;
    }
    if (openHelp()) {
        help_->activate();
        help_->showIndex();
    }
}

/// Shows our own viewer, with the program's help in it; false, and said so, when that cannot be
/// read.
bool frmMain::openHelp() {
    const bool isNew = help_ == nullptr || !help_->isVisible();
    if (isNew) {
        help_ = std::make_unique<help::frmHelp>(settings_);
        help_->Closed.connect([this] { discard(std::move(help_)); });
    }
    const bool isOpen = help_->book() != nullptr && help_->book()->path() == helpFile_;
    if (!isOpen && !help_->openBook(helpFile_)) {
        if (isNew) {
            help_.reset();
        }
        ui::Prompter::current().tell(this, help::unreadableMessage(helpFile_));
        return false;
    }
    help_->show();
    return true;
}

} // namespace app
