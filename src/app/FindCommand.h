#pragma once

#include <memory>

#include "app/CommandHost.h"
#include "app/TopicEditor.h"
#include "tools/forms/frmFind.h"
#include "ui/ListView.h"

namespace app {

/// Looks for texts in the whole project. Shows matches in the title's field and in the editor.
class FindCommand : private tools::FindHost {
public:
    /// Nothing is owned.
    FindCommand(CommandHost& host, const model::Project& project, TopicEditor& editor,
                ui::ListView& list, ui::TextBox& title);

    /// Asks for the text.
    void find();

    /// Asks for the text where there is none yet.
    void findNext();

    /// Positions mean other topics from here on.
    void restart();

    /// Two topics have changed places.
    void topicsSwapped(int a, int b);

private:
    // What a search asks for.
    const model::TopicOutline& outline() const override { return project_.outline(); }
    int selectedTopic() const override;
    std::optional<text::Text> editedText(int topic, tools::FindStage stage) const override;
    bool leaveBody() override { return editor_.close(); }
    bool showMatch(const tools::FindMatch& match) override;

    void openDialog();
    void dialogClosed();
    bool canFindNext() const;
    void findInTexts();
    ui::TextBox& boxOf(tools::FindStage stage) const;
    void mark(const tools::FindMatch& match);

    CommandHost& host_;
    const model::Project& project_;
    TopicEditor& editor_;
    ui::ListView& list_;
    ui::TextBox& title_;
    text::Text lastText_; ///< as long as the program runs
    std::unique_ptr<tools::frmFind> dialog_;
};

} // namespace app
