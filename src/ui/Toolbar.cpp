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

struct Toolbar::Native {
    QPointer<QToolBar> bar;
};

Toolbar::Toolbar(Window& window) : native_(std::make_unique<Native>()) {
    auto* main = qobject_cast<QMainWindow*>(window.native().widget.data());
    native_->bar = new QToolBar(main);
    native_->bar->setMovable(false);
    native_->bar->setFloatable(false);
    native_->bar->setIconSize({20, 20});
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

void Toolbar::addDropDown(TextView toolTip, const std::vector<Entry>& entries, TextView shown) {
    auto* button = new QToolButton(native_->bar);
    auto* menu = new QMenu(button);
    auto* face = new QAction(button);
    face->setToolTip(toQt(toolTip)); // the button follows its action
    const auto show = [face](const Entry& entry) {
        face->setIcon(imageNamed(entry.key));
        face->setData(toQt(entry.key));
    };
    for (const Entry& entry : entries) {
        QAction* choice = menu->addAction(imageNamed(entry.key), toQt(entry.caption));
        QObject::connect(choice, &QAction::triggered, [this, show, entry] {
            show(entry);
            ButtonClick.raise(entry.key);
        });
        if (entry.key == shown) {
            show(entry);
        }
    }
    QObject::connect(face, &QAction::triggered,
                     [this, face] { ButtonClick.raise(fromQt(face->data().toString())); });
    button->setDefaultAction(face);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    native_->bar->addWidget(button);
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
