#pragma once

#include <vector>

#include "ui/Command.h"

namespace ui {

/// A menu bar, one of its menus or submenus, or a context menu. It lists commands; it does not own
/// them.
class Menu {
public:
    /// A context menu.
    explicit Menu(Window& window);
    ~Menu();
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    /// The new menu belongs to this one.
    Menu& addMenu(TextView name, TextView caption);
    void add(Command& command);
    void addSeparator(TextView name);

    /// Shows or hides an entry of this menu, found by its name; a name that there is not does
    /// nothing.
    void setVisible(TextView name, bool visible);

    struct Native;
    Native& native() const { return *native_; }

    /// For this layer.
    explicit Menu(std::unique_ptr<Native> native);

private:
    std::unique_ptr<Native> native_;
    std::vector<std::unique_ptr<Menu>> menus_;
};

} // namespace ui
