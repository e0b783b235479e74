#include <algorithm>

#include "app/frmMain.h"

// The search in the main window.
namespace app {

using tools::FindMatch;
using tools::FindStage;

void frmMain::mnuEditFind_Click() {
    leaveField();
    if (find_ == nullptr || !find_->isVisible()) {
        tools::FindHost& host = *this;
        find_ = std::make_unique<tools::frmFind>(*this, host, lastFindText_);
        find_->Closed.connect([this] { discard(std::move(find_)); });
        find_->show();
    }
    find_->activate();
}

int frmMain::selectedTopic() const {
    return std::max(project_.currentIndex(), 1);
}

/// The editor belongs to the current topic.
std::optional<model::Text> frmMain::editedBody(int topic) const {
    const bool edited =
        editor_ != nullptr && editor_->isVisible() && topic == project_.currentIndex();
    return edited ? std::optional(editor_->txtBody.text()) : std::nullopt;
}

void frmMain::showMatch(const FindMatch& match) {
    leaveField();
    if (!showTopic(match.topic)) {
        return;
    }
    lvLevels.select(match.topic);
    if (match.stage == FindStage::title) {
        activate();
        txtTitle.setFocus();
        txtTitle.select(match.start, match.length);
        return;
    }
    openTopicEditor(match.topic);
    ui::TextBox& box = match.stage == FindStage::body ? editor_->txtBody : editor_->txtShortDesc;
    box.setFocus();
    box.select(match.start, match.length);
}

} // namespace app
