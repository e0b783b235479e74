#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

class Window;

/// How a command shows itself. Empty parts are missing.
struct CommandLook {
    Text name;     ///< for tests and for whoever reads the code
    Text caption;  ///< in menus; "&" marks the letter that chooses it
    Text key;      ///< of its toolbar button
    Text toolTip;  ///< of that button
    Text image;    ///< one of assets/icons
    Text shortcut; ///< as in "Ctrl+Shift+S"; several are separated by "; ", the first is shown
};

/// Something that a person can choose from a menu, a toolbar or by its shortcut. One command is
/// shared by all places that offer it. It goes with its window at the latest.
class Command {
public:
    Command(Window& window, CommandLook look);
    ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    const CommandLook& look() const { return look_; }
    void setEnabled(bool enabled);
    bool isEnabled() const;
    void setVisible(bool visible);
    void setCaption(TextView caption);

    /// Shows with a tick whether what it stands for is on.
    void setChecked(bool checked);

    /// A caption in which "&" is nothing special.
    void setPlainCaption(TextView caption);

    void setImage(TextView name);
    void setToolTip(TextView text);

    /// The shortcut counts only while this control has the focus. To be called before the command
    /// is put into menus.
    void limitShortcutTo(Control& control);

    Event<> Click;

    struct Native;
    Native& native() const { return *native_; }

private:
    CommandLook look_;
    std::unique_ptr<Native> native_;
};

} // namespace ui
