#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "ui/qt/Icons.h"
#include "ui/testing/Driver.h"

namespace ui::testing {

namespace {

void look(const QWidget& box, BoxLook& found) {
    for (const auto* button : box.findChildren<QPushButton*>()) {
        found.hasPictures = found.hasPictures || !button->icon().isNull();
        if (button->isDefault()) {
            found.enter = QString(button->text()).remove('&').toStdString();
        }
    }
    if (const auto* message = qobject_cast<const QMessageBox*>(&box)) {
        const QPixmap shown = message->iconPixmap();
        for (const char* name : {"BoxInformation", "BoxQuestion", "BoxWarning", "BoxFailure"}) {
            const bool same = imageNamed(name).pixmap(shown.size()).toImage() == shown.toImage();
            found.sign += !shown.isNull() && same ? name : "";
        }
    }
    if (const auto* dialog = qobject_cast<const QFileDialog*>(&box)) {
        const auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        found.folder = dialog->directory().absolutePath().toStdString();
        found.fileName = name->text().toStdString();
        found.selected = name->selectedText().toStdString();
        found.asksToReplace = !dialog->testOption(QFileDialog::DontConfirmOverwrite);
    }
}

} // namespace

BoxLook lookAtBox(const std::function<void()>& ask) {
    // Into a box of the system's own nobody sees from here.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    BoxLook found;
    QTimer watch; // until the box is there
    QObject::connect(&watch, &QTimer::timeout, [&found] {
        if (QWidget* box = QApplication::activeModalWidget(); box != nullptr && box->isVisible()) {
            look(*box, found);
            box->close();
        }
    });
    watch.start(10);
    ask();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    return found;
}

void setYesLast(bool last) {
    qApp->setStyleSheet(last ? "QDialogButtonBox { button-layout: 3 }" : "");
}

} // namespace ui::testing
