#pragma once

#include <vector>

#include "ui/Command.h"

namespace ui {

/// A row of buttons below the menu bar, each with a key. A button shows a command, or one entry of
/// its drop-down menu. Not for dialogs.
class Toolbar {
public:
    /// Small buttons are for many of them.
    enum class Size { normal, small };
    explicit Toolbar(Window& window, Size size = Size::normal);
    ~Toolbar();
    Toolbar(const Toolbar&) = delete;
    Toolbar& operator=(const Toolbar&) = delete;

    /// The button has the command's key, image and tool tip, and chooses the command, which is not
    /// owned: nothing may be set on the button when it has gone.
    void add(Command& command);
    void addSeparator();

    struct Entry {
        Text caption;
        Text key;
        Text image;
    };
    /// A button with a menu of entries, which shows one key and raises ButtonClick with it. An
    /// entry raises ButtonMenuClick; what the button shows then is the window's decision.
    void addDropDown(TextView name, TextView toolTip, const std::vector<Entry>& entries);
    void setDropDown(TextView name, TextView key, TextView image);

    /// What the button shows; empty for a name that there is not.
    Text dropDownKey(TextView name) const;

    /// A key without a button does nothing.
    void setImage(TextView key, TextView image);
    void setToolTip(TextView key, TextView text);

    // Of the drop-down buttons; a command's button chooses the command.
    Event<const Text&> ButtonClick;
    Event<const Text&> ButtonMenuClick;

private:
    struct DropDown;
    struct Native;
    DropDown* dropDown(TextView name) const;
    std::unique_ptr<Native> native_;
    std::vector<Command*> commands_;
};

} // namespace ui
