#pragma once

#include <memory>

#include "editor/forms/frmEditBody.h"

namespace app {

/// The editor of the current topic, while there is one. It belongs to that topic: whoever makes
/// another one current closes it first.
class TopicEditor {
public:
    /// Nothing is owned. See frmEditBody for the folder.
    TopicEditor(ui::Window& owner, model::Project& project, ui::Settings& settings,
                std::filesystem::path programFolder);

    /// Shows the current topic; the focus stays where it is.
    void show();

    /// Where the editor is shown from the next time on; null for a window of its own. Closing one
    /// that is shown there keeps no text of a template that nobody has edited.
    void setDock(ui::Container* place) { dock_ = place; }
    ui::Container* dock() const { return dock_; }

    /// Whether edits in a docked editor are stored without a question.
    void setStoresUnasked(bool unasked) { storesUnasked_ = unasked; }
    bool storesUnasked() const { return storesUnasked_; }

    /// False when the author wants to go on editing.
    bool close();

    /// For commands that take the whole project while the editor stays open: asks whether edits
    /// are to be saved. False when the author cancels.
    bool store();

    bool isOpen() const { return editor_ != nullptr && editor_->isVisible(); }
    bool hasEdits() const { return isOpen() && editor_->changed(); }

    /// Null when no topic is being edited. For a moment it is still there when it was closed.
    editor::frmEditBody* window() const { return editor_.get(); }

    /// A template may have been edited.
    void forgetTemplates() { memory_.templates.clear(); }

    /// Words may have been added, or another dictionary chosen.
    void forgetWords() { memory_.words.forget(); }

    ui::Event<> Edited;     ///< or closed, and what was not saved in it is not wanted
    ui::Event<> Changed;    ///< as Edited, for whoever shows the text
    ui::Event<> CaretMoved; ///< in the text
    ui::Event<> ClosedByPerson;
    // As in frmEditBody.
    ui::Event<int> Neighbour;
    ui::Event<> Find;
    ui::Event<> FindNext;
    ui::Event<text::Text> Replace;
    ui::Event<> Raised;

private:
    void noteEdit();

    ui::Window& owner_;
    model::Project& project_;
    ui::Settings& settings_;
    std::filesystem::path programFolder_;
    editor::EditorMemory memory_;
    ui::Container* dock_ = nullptr;
    bool storesUnasked_ = false;
    bool closing_ = false; ///< by the program
    std::unique_ptr<editor::frmEditBody> editor_;
};

} // namespace app
