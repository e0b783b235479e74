#include "app/ReplaceCommand.h"

#include <algorithm>

#include "text/TextLines.h"
#include "ui/WaitCursor.h"

namespace app {

using tools::TopicPart;

ReplaceCommand::ReplaceCommand(CommandHost& host, model::Project& project, TopicEditor& editor,
                               ui::TextBox& title)
    : host_(host), project_(project), editor_(editor), title_(title) {
    editor_.Replace.connect([this](const text::Text& text) { replace(text); });
}

void ReplaceCommand::replace(text::TextView text) {
    if (dialog_ == nullptr || !dialog_->isVisible()) {
        tools::ReplaceHost& texts = *this; // others cannot see it so
        dialog_ = std::make_unique<tools::frmReplace>(host_.window(), texts, memory_);
        dialog_->Closed.connect([this] { ui::Window::discard(std::move(dialog_)); });
        dialog_->show();
    }
    dialog_->ask(text);
}

void ReplaceCommand::restart() {
    if (dialog_ != nullptr) {
        dialog_->forget();
    }
}

bool ReplaceCommand::storeEdits() {
    bool stored = false;
    host_.carryOut({EditorFate::isStored}, [&stored] { stored = true; });
    return stored;
}

/// The window with the text comes to the front, to go on there.
void ReplaceCommand::showPlace(const tools::Place& place) {
    if (project_.history().isTyping()) {
        host_.leaveField();
    }
    if (place.topic > project_.outline().count() || !host_.showTopic(place.topic)) {
        return;
    }
    const text::Text& text = project_.outline().at(place.topic).*fieldOf(place.part);
    const auto shown = [&text](std::size_t offset) { // boxes count each line end as two
        return text::withLineBreaks(text.substr(0, offset)).size();
    };
    ui::Window* window = &host_.window();
    ui::TextBox* box = &title_;
    if (place.part != TopicPart::title) {
        editor_.show();
        editor::frmEditBody& editor = *editor_.window();
        window = &editor;
        box = place.part == TopicPart::body       ? &editor.txtBody
              : place.part == TopicPart::keywords ? &editor.txtKeywords
                                                  : &editor.txtShortDesc;
    }
    window->activate();
    box->setFocus();
    const std::size_t start = shown(place.start);
    box->select(start, shown(place.start + place.length) - start);
}

std::optional<tools::PlaceSearch::Replaced>
ReplaceCommand::replace(tools::PlaceSearch& search, std::span<const tools::Place> places,
                        const tools::Replacement& with) {
    const bool isEdited = std::any_of(places.begin(), places.end(), [this](const auto& place) {
        return place.topic == project_.currentIndex();
    });
    const bool reopens = isEdited && editor_.isOpen();
    const std::size_t caret = reopens ? editor_.window()->txtBody.selection().start : 0;
    const bool hadFocus =
        reopens && host_.window().focusedTextBox() == &editor_.window()->txtBody; // docked
    std::optional<tools::PlaceSearch::Replaced> replaced;
    host_.carryOut({isEdited ? EditorFate::isClosed : EditorFate::stays}, [&] {
        const ui::WaitCursor busy;
        replaced = search.replace(project_, places, with);
    });
    if (replaced && reopens) { // who came from there goes on there
        editor_.show();
        ui::TextBox& body = editor_.window()->txtBody;
        body.select(std::min(caret, body.countedText().size()), 0);
        if (hadFocus) {
            body.setFocus();
        }
    }
    return replaced;
}

} // namespace app
