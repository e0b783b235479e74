#pragma once

#include <vector>

#include "ui/Command.h"

namespace ui {

/// A row of buttons below the menu bar, each with a key. A button shows a command, or a choice of
/// the last entry taken from its drop-down menu.
class Toolbar {
public:
    explicit Toolbar(Window& window);
    ~Toolbar();
    Toolbar(const Toolbar&) = delete;
    Toolbar& operator=(const Toolbar&) = delete;

    /// The button has the command's key, image and tool tip, and chooses the command.
    void add(Command& command);
    void addSeparator();

    struct Entry {
        Text caption;
        Text key; ///< also the name of its image
    };
    /// A button that shows one of the entries and raises ButtonClick with its key; choosing another
    /// from its menu shows that one from then on, and raises it too. `shown` is an entry's key.
    void addDropDown(TextView toolTip, const std::vector<Entry>& entries, TextView shown);

    /// A key without a button does nothing.
    void setImage(TextView key, TextView image);
    void setToolTip(TextView key, TextView text);

    Event<const Text&> ButtonClick;

private:
    struct Native;
    std::unique_ptr<Native> native_;
    std::vector<Command*> commands_;
};

} // namespace ui
