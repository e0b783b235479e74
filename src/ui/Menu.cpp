#include "ui/Menu.h"

#include "ui/Window.h"
#include "ui/qt/CommandNative.h"
#include "ui/qt/MenuNative.h"
#include "ui/qt/Native.h"

namespace ui {

Menu::Menu(std::unique_ptr<Native> native) : native_(std::move(native)) {
    if (native_->menu) {
        native_->menu->setToolTipsVisible(false);
    }
}

Menu::Menu(Window& window)
    : Menu(std::make_unique<Native>(Native{{}, new QMenu(window.native().widget), true})) {}

Menu::~Menu() {
    if (native_->owned) {
        delete native_->menu;
    }
}

Menu& Menu::addMenu(TextView name, TextView caption) {
    QMenu* menu =
        native_->bar ? native_->bar->addMenu(toQt(caption)) : native_->menu->addMenu(toQt(caption));
    menu->menuAction()->setObjectName(toQt(name));
    menus_.push_back(std::make_unique<Menu>(std::make_unique<Native>(Native{{}, menu})));
    return *menus_.back();
}

void Menu::add(Command& command) {
    native_->widget().addAction(command.native().action);
}

void Menu::addSeparator(TextView name) {
    auto* separator = new QAction(&native_->widget());
    separator->setSeparator(true);
    separator->setObjectName(toQt(name));
    native_->widget().addAction(separator);
}

void Menu::setVisible(TextView name, bool visible) {
    const QString wanted = toQt(name);
    for (QAction* action : native_->widget().actions()) {
        if (action->objectName() == wanted) {
            action->setVisible(visible);
        }
    }
}

} // namespace ui
