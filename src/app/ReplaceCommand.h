#pragma once

#include <memory>

#include "app/CommandHost.h"
#include "app/TopicEditor.h"
#include "tools/forms/frmReplace.h"

namespace app {

/// Finds and replaces texts in the whole project.
class ReplaceCommand : private tools::ReplaceHost {
public:
    /// Nothing is owned.
    ReplaceCommand(CommandHost& host, model::Project& project, TopicEditor& editor,
                   ui::TextBox& title);

    /// A text of one line is looked for, unless it is empty.
    void replace(text::TextView text = {});

    /// The project is another one.
    void restart();

private:
    const model::TopicOutline& outline() const override { return project_.outline(); }
    bool storeEdits() override;
    void showPlace(const tools::Place& place) override;
    std::optional<tools::PlaceSearch::Replaced> replace(tools::PlaceSearch& search,
                                                        std::span<const tools::Place> places,
                                                        const tools::Replacement& with) override;

    CommandHost& host_;
    model::Project& project_;
    TopicEditor& editor_;
    ui::TextBox& title_;
    tools::ReplaceMemory memory_;
    std::unique_ptr<tools::frmReplace> dialog_;
};

} // namespace app
