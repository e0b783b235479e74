#pragma once

#include "app/MainWindowFixture.h"

namespace test {

/// The topic editor, opened from the main window as an author does.
class TopicEditor : public MainWindow {
protected:
    void edit(text::Text body) {
        auto outline = titled({"a", "b"});
        outline.at(1).body = std::move(body);
        load(std::move(outline));
        openFirst();
    }

    void openFirst() {
        ui::testing::doubleClickRow(window->lvLevels, 1);
        ASSERT_NE(window->editor(), nullptr);
        ui::testing::show(editor());
        editor().txtBody.setFocus();
        ui::testing::settle();
    }

    editor::frmEditBody& editor() { return *window->editor(); }

    void expectCloseQuestion(ui::Answer answer) {
        prompter.expect({"Changes Made, Save Changes?", "Save", ui::Buttons::yesNoCancel,
                         ui::QuestionIcon::question},
                        answer);
    }

    /// The body with "|" at the caret.
    std::string body() {
        text::Text text = editor().txtBody.countedText();
        return text.insert(editor().txtBody.selection().start, "|");
    }
};

} // namespace test
