#pragma once

#include <array>

#include "model/RecentFiles.h"
#include "ui/Button.h"
#include "ui/Event.h"
#include "ui/Label.h"
#include "ui/Panel.h"

namespace app {

/// Stands over the outline as long as it is empty, and says what can be done first.
class StartPage : public ui::Panel {
public:
    explicit StartPage(ui::Container& container);

    /// `hasProject`: there is a file already, which only lacks topics.
    void update(bool hasProject, const model::RecentFiles& recent);

    ui::Label lblTitle{*this, ""};
    ui::Label lblHint{*this, ""};
    ui::Button cmdAdd{*this, "Add the First Topic"};
    ui::Button cmdOpen{*this, "Open a Project..."};
    ui::Button cmdText{*this, "New From an Outline..."};
    ui::Button cmdProject{*this, "New From a Visual Basic Project..."};
    ui::Button cmdHelp{*this, "New From Existing Help..."};
    ui::Button cmdExample{*this, "Look at an Example"};
    ui::Label lblRecent{*this, "Used last:"};

    // What was chosen.
    ui::Event<> Add;
    ui::Event<> Open;
    ui::Event<> Text;
    ui::Event<> Project;
    ui::Event<> Help;
    ui::Event<> Example;
    ui::Event<int> Recent; ///< a slot of the recent files

private:
    std::array<std::unique_ptr<ui::Button>, model::RecentFiles::maxFiles> recent_;
};

} // namespace app
