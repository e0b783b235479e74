#include "ui/Toolbar.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "ui/Window.h"
#include "ui/qt/CommandNative.h"
#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

struct Toolbar::DropDown {
    Text name;
    Text key;
    QPointer<QAction> face; ///< what the button shows
};

struct Toolbar::Native {
    QPointer<QToolBar> bar;
    std::vector<DropDown> dropDowns;
};

Toolbar::Toolbar(Window& window, Size size) : native_(std::make_unique<Native>()) {
    auto* main = qobject_cast<QMainWindow*>(window.native().widget.data());
    native_->bar = new QToolBar(main);
    native_->bar->setMovable(false);
    native_->bar->setFloatable(false);
    native_->bar->setIconSize(size == Size::small ? QSize(16, 16) : QSize(20, 20));
    native_->bar->setContextMenuPolicy(Qt::PreventContextMenu);
    native_->bar->toggleViewAction()->setVisible(false);
    main->addToolBar(native_->bar);
}

Toolbar::~Toolbar() {
    delete native_->bar;
}

void Toolbar::add(Command& command) {
    native_->bar->addAction(command.native().action);
    commands_.push_back(&command);
}

void Toolbar::addSeparator() {
    native_->bar->addSeparator();
}

void Toolbar::addDropDown(TextView name, TextView toolTip, const std::vector<Entry>& entries) {
    auto* button = new QToolButton(native_->bar);
    auto* menu = new QMenu(button);
    auto* face = new QAction(button);
    face->setToolTip(toQt(toolTip)); // the button follows its action
    for (const Entry& entry : entries) {
        QAction* choice = menu->addAction(imageNamed(entry.image), toQt(entry.caption));
        QObject::connect(choice, &QAction::triggered,
                         [this, key = entry.key] { ButtonMenuClick.raise(key); });
    }
    QObject::connect(face, &QAction::triggered,
                     [this, held = Text(name)] { ButtonClick.raise(dropDownKey(held)); });
    button->setDefaultAction(face);
    button->setAccessibleName(face->toolTip());
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    native_->bar->addWidget(button);
    native_->dropDowns.push_back({Text(name), {}, face});
}

Toolbar::DropDown* Toolbar::dropDown(TextView name) const {
    for (DropDown& known : native_->dropDowns) {
        if (known.name == name) {
            return &known;
        }
    }
    return nullptr;
}

void Toolbar::setDropDown(TextView name, TextView key, TextView image) {
    if (DropDown* known = dropDown(name)) {
        known->key = key;
        known->face->setIcon(imageNamed(image));
    }
}

Text Toolbar::dropDownKey(TextView name) const {
    const DropDown* known = dropDown(name);
    return known == nullptr ? Text() : known->key;
}

void Toolbar::setImage(TextView key, TextView image) {
    for (Command* command : commands_) {
        if (command->look().key == key) {
            command->setImage(image);
        }
    }
}

void Toolbar::setToolTip(TextView key, TextView text) {
    for (Command* command : commands_) {
        if (command->look().key == key) {
            command->setToolTip(text);
        }
    }
}

} // namespace ui
