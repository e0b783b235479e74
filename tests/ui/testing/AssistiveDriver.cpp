#include <QAccessible>
#include <QTreeView>
#include <QWidget>

#include "ui/testing/Driver.h"
#include "ui/testing/Native.h"

// What assistive programs are told.
namespace ui::testing {

namespace {

// What a page tells comes from a library without type information, which a sanitizer asks for; so
// nothing is called here that the toolkit has written out in a header.
__attribute__((no_sanitize("vptr"))) void collectNameless(QAccessibleInterface& part,
                                                          const QString& path, QString& found) {
    const QAccessible::State state = part.state();
    const QAccessible::Role role = part.role();
    if (state.invisible) {
        return;
    }
    const QString name = part.text(QAccessible::Name);
    const QString here =
        path + '/' + (part.object() != nullptr ? part.object()->metaObject()->className() : "cell");
    const bool isItem = role == QAccessible::Cell || role == QAccessible::ListItem
                        || role == QAccessible::TreeItem; // empty where their texts are
    if (state.focusable && !isItem && (name.isEmpty() || role == QAccessible::NoRole)) {
        found += here + '\n';
    }
    if (part.interface_cast(QAccessible::TableInterface) != nullptr
        || role == QAccessible::WebDocument) {
        return; // the rows are what the author wrote
    }
    for (int i = 0; i < part.childCount(); ++i) {
        if (QAccessibleInterface* child = part.child(i); child != nullptr && child->isValid()) {
            collectNameless(*child, here, found);
        }
    }
}

} // namespace

std::string namelessParts(Window& window) {
    QString found;
    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&widgetOf(window));
    if (root == nullptr || root->text(QAccessible::Name).isEmpty()) {
        return "the window";
    }
    for (int i = 0; i < root->childCount(); ++i) {
        if (QAccessibleInterface* child = root->child(i); child != nullptr && child->isValid()) {
            collectNameless(*child, {}, found);
        }
    }
    return found.toStdString();
}

std::string spokenCell(const ListView& list, int row, int column) {
    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&viewOf(list));
    QAccessibleInterface* cell = root->tableInterface()->cellAt(row - 1, column);
    const QString description = cell->text(QAccessible::Description);
    return (cell->text(QAccessible::Name) + (description.isEmpty() ? "" : ", ") + description)
        .toStdString();
}

} // namespace ui::testing
