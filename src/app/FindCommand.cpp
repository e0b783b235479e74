#include "app/FindCommand.h"

#include <algorithm>

#include "text/TextLines.h"

namespace app {

using tools::FindMatch;
using tools::FindStage;

FindCommand::FindCommand(CommandHost& host, const model::Project& project, TopicEditor& editor,
                         ui::ListView& list, ui::TextBox& title)
    : host_(host), project_(project), editor_(editor), list_(list), title_(title) {
    editor_.Find.connect([this] { findInTexts(); });
    editor_.FindNext.connect([this] { canFindNext() ? findNext() : findInTexts(); });
    editor_.Raised.connect([this] {
        // Both are the main window's, and the one that came to the front last would cover the
        // other.
        if (dialog_ != nullptr && dialog_->isVisible()) {
            dialog_->raise();
        }
    });
}

void FindCommand::find() {
    host_.carryOut({}, [this] {
        openDialog();
        dialog_->ask();
    });
}

void FindCommand::openDialog() {
    if (dialog_ != nullptr && dialog_->isVisible()) {
        return;
    }
    ui::Window& window = host_.window();
    tools::FindHost& texts = *this; // others cannot see it so
    dialog_ = std::make_unique<tools::frmFind>(window, texts, lastText_);
    dialog_->Closed.connect([this] { dialogClosed(); });
    dialog_->show();
    // Beside the fields and the upper rows of the list, where matches appear.
    dialog_->setPosition(window.left() + window.width() - dialog_->width(),
                         window.top() + window.height() - dialog_->height());
}

void FindCommand::dialogClosed() {
    const bool inText = dialog_->match().stage != FindStage::title;
    ui::Window::discard(std::move(dialog_));
    if (inText && editor_.isOpen()) {
        editor_.window()->activate(); // to go on with what was found
    }
}

/// Who asks from the midst of a text means the texts.
void FindCommand::findInTexts() {
    find();
    dialog_->includeBodies();
}

bool FindCommand::canFindNext() const {
    return dialog_ != nullptr && dialog_->isVisible() && dialog_->cmdFindNext.isEnabled();
}

void FindCommand::findNext() {
    if (!canFindNext()) {
        find();
        return;
    }
    host_.carryOut({}, [this] { dialog_->cmdFindNext_Click(); });
}

int FindCommand::selectedTopic() const {
    return std::max(project_.currentIndex(), 1);
}

ui::TextBox& FindCommand::boxOf(FindStage stage) const {
    if (stage == FindStage::title) {
        return title_;
    }
    editor::frmEditBody& editor = *editor_.window();
    return stage == FindStage::body ? editor.txtBody : editor.txtShortDesc;
}

/// The editor belongs to the current topic. It counts every line end as two characters, which
/// others may not have.
std::optional<text::Text> FindCommand::editedText(int topic, FindStage stage) const {
    if (editor_.isOpen() && topic == project_.currentIndex()) {
        return boxOf(stage).countedText();
    }
    const text::Text& body = project_.outline().at(topic).body;
    if (stage != FindStage::body || !text::hasOtherLineEnds(body)) {
        return {};
    }
    return text::withLineBreaks(body);
}

bool FindCommand::showMatch(const FindMatch& match) {
    if (project_.history().isTyping()) {
        host_.leaveField();
    }
    if (!host_.showTopic(match.topic)) {
        return false;
    }
    list_.select(match.topic);
    if (match.stage != FindStage::title) {
        editor_.show();
    }
    mark(match);
    return true;
}

/// The focus of the window that shows the match goes there; which window has it is left alone, so
/// that Enter in Find means the next match and never what is marked.
void FindCommand::mark(const FindMatch& match) {
    ui::TextBox& box = boxOf(match.stage);
    ui::Window& shown = match.stage == FindStage::title
                            ? host_.window()
                            : static_cast<ui::Window&>(*editor_.window());
    if (ui::TextBox* before = shown.focusedTextBox(); before != nullptr && before != &box) {
        before->select(before->selection().start, 0); // one match is marked, not two
    }
    box.setFocus();
    box.select(match.start, match.length);
    if (!dialog_->isActive()) { // from the key for the next match
        shown.activate();
    }
    dialog_->raise();
    dialog_->uncover(box.selectionPlace());
}

void FindCommand::restart() {
    if (dialog_ != nullptr) {
        dialog_->restart();
    }
}

void FindCommand::topicsSwapped(int a, int b) {
    if (dialog_ != nullptr) {
        dialog_->topicsSwapped(a, b);
    }
}

} // namespace app
