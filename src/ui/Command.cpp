#include "ui/Command.h"

#include <QKeySequence>

#include "ui/Window.h"
#include "ui/qt/CommandNative.h"
#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

Command::Command(Window& window, CommandLook look)
    : look_(std::move(look)), native_(std::make_unique<Native>()) {
    QWidget* widget = window.native().widget;
    native_->action = new QAction(toQt(look_.caption), widget);
    native_->action->setObjectName(toQt(look_.name));
    native_->action->setIcon(imageNamed(look_.image));
    native_->action->setShortcuts(QKeySequence::listFromString(toQt(look_.shortcut)));
    if (!look_.toolTip.empty()) {
        setToolTip(look_.toolTip);
    }
    widget->addAction(native_->action);
    QObject::connect(native_->action, &QAction::triggered, [this] { Click.raise(); });
}

Command::~Command() {
    delete native_->action;
}

void Command::setEnabled(bool enabled) {
    native_->action->setEnabled(enabled);
}

bool Command::isEnabled() const {
    return native_->action->isEnabled();
}

void Command::setVisible(bool visible) {
    native_->action->setVisible(visible);
}

void Command::setChecked(bool checked) {
    native_->action->setCheckable(true);
    native_->action->setChecked(checked);
}

void Command::setCaption(TextView caption) {
    native_->action->setText(toQt(caption));
}

void Command::setPlainCaption(TextView caption) {
    native_->action->setText(toQt(caption).replace('&', "&&"));
}

void Command::setImage(TextView name) {
    native_->action->setIcon(imageNamed(name));
}

void Command::setToolTip(TextView text) {
    native_->action->setToolTip(toQt(text));
}

void Command::limitShortcutTo(Control& control) {
    for (QObject* holder : native_->action->associatedObjects()) {
        if (auto* widget = qobject_cast<QWidget*>(holder)) {
            widget->removeAction(native_->action);
        }
    }
    native_->action->setShortcutContext(Qt::WidgetShortcut);
    control.native().widget->addAction(native_->action);
}

} // namespace ui
