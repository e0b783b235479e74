#include "app/TopicEditor.h"

namespace app {

TopicEditor::TopicEditor(ui::Window& owner, model::Project& project, ui::Settings& settings,
                         std::filesystem::path programFolder)
    : owner_(owner), project_(project), settings_(settings),
      programFolder_(std::move(programFolder)) {}

void TopicEditor::show() {
    if (editor_ != nullptr && !editor_->isVisible()) {
        // Just closed, perhaps by a command of its own that is still running.
        editor_->Closed.disconnect();
        ui::Window::discard(std::move(editor_));
    }
    if (editor_ == nullptr) {
        editor_ = std::make_unique<editor::frmEditBody>(owner_, project_, settings_, memory_,
                                                        programFolder_);
        if (dock_ != nullptr) {
            editor_->dockIn(*dock_);
        }
        closing_ = false;
        editor_->Closed.connect([this] {
            ui::Window::discard(std::move(editor_));
            if (!std::exchange(closing_, false)) {
                ClosedByPerson.raise();
            }
            noteEdit();
        });
        editor_->Edited.connect([this] { noteEdit(); });
        editor_->CaretMoved.connect([this] { CaretMoved.raise(); });
        editor_->Neighbour.connect([this](int step) { Neighbour.raise(step); });
        editor_->Find.connect([this] { Find.raise(); });
        editor_->FindNext.connect([this] { FindNext.raise(); });
        editor_->Replace.connect([this](const text::Text& text) { Replace.raise(text); });
        editor_->Raised.connect([this] { Raised.raise(); });
        const model::Topic& topic = project_.outline().at(project_.currentIndex());
        editor_->setCaption("Edit Topic - " + topic.title);
    }
    editor_->showUnfocused();
}

void TopicEditor::noteEdit() {
    Edited.raise();
    Changed.raise();
}

bool TopicEditor::close() {
    if (!isOpen()) {
        return true;
    }
    if (editor_->isDocked()) {
        editor_->forgetTemplate();
        if (storesUnasked_) {
            editor_->mnuFileSave_Click();
        }
    }
    closing_ = editor_->close();
    return closing_;
}

bool TopicEditor::store() {
    if (isOpen() && editor_->isDocked() && storesUnasked_) {
        editor_->mnuFileSave_Click();
    }
    return !isOpen() || editor_->offerSave();
}

} // namespace app
