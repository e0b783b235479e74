#include "ui/testing/EditorDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include "ui/testing/Driver.h"
#include "ui/testing/Native.h"

namespace ui::testing {

void putOnClipboard(const std::string& html, const std::string& text) {
    auto* data = new QMimeData; // the clipboard's
    if (!html.empty()) {
        data->setHtml(QString::fromStdString(html));
    }
    data->setText(QString::fromStdString(text));
    QGuiApplication::clipboard()->setMimeData(data);
    settle();
}

void putPictureOnClipboard(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(image);
    settle();
}

bool drawGrid(int rows, int columns) {
    QWidget* grid = QApplication::activePopupWidget();
    if (grid == nullptr || grid->objectName() != QLatin1String("gridChoice")) {
        return false;
    }
    const int cell = std::max(18, grid->fontMetrics().height());
    const auto at = [cell](int row, int column) {
        return QPoint(8 + column * cell - cell / 2, 8 + row * cell - cell / 2);
    };
    QTest::mousePress(grid, Qt::LeftButton, {}, at(1, 1));
    // Step by step, as it grows under the mouse.
    for (int row = 1; row <= rows; ++row) {
        QTest::mouseMove(grid, at(row, 1));
    }
    for (int column = 1; column <= columns; ++column) {
        QTest::mouseMove(grid, at(rows, column));
    }
    QTest::mouseRelease(grid, Qt::LeftButton, {}, at(rows, columns));
    settle();
    return true;
}

std::vector<std::string> chooseAtCaret(const HtmlBox& box, const std::string& caption) {
    auto& area = static_cast<QPlainTextEdit&>(widgetOf(box));
    std::vector<std::string> offered;
    QTimer::singleShot(0, &area, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            return;
        }
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            if (!action->objectName().isEmpty()) { // the toolkit's own have one
                break;
            }
            offered.push_back(action->isSeparator() ? "-" : action->text().toStdString());
            chosen = offered.back() == caption ? action : chosen;
        }
        if (chosen != nullptr) {
            chosen->trigger();
        }
        menu->close();
    });
    const QPoint place = area.cursorRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place,
                            area.viewport()->mapToGlobal(place));
    QApplication::sendEvent(area.viewport(), &event);
    area.window()->activateWindow();
    area.setFocus();
    settle();
    return offered;
}

} // namespace ui::testing
