#include <QApplication>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>

#include "ui/qt/Native.h"
#include "ui/testing/Driver.h"

// Kept apart from the rest of the driver: the browser's headers are large.
namespace ui::testing {

namespace {

QWebEngineView& viewOf(const Control& browser) {
    return static_cast<QWebEngineView&>(*browser.native().widget);
}

std::optional<QString> textNow(const Control& browser) {
    auto text = std::make_shared<std::optional<QString>>();
    viewOf(browser).page()->toPlainText([text](const QString& found) { *text = found; });
    if (!QTest::qWaitFor([text] { return text->has_value(); }, 10000)) {
        qFatal("the browser does not answer");
    }
    return *text;
}

} // namespace

std::string waitForPage(const Control& browser, const std::string& expected) {
    std::string text;
    for (int attempt = 0; attempt < 200; ++attempt) {
        text = textNow(browser)->toStdString();
        if (text.find(expected) != std::string::npos) {
            break;
        }
        QTest::qWait(50);
    }
    return text;
}

bool waitForPageHeight(const Control& browser, int pixels, int milliseconds) {
    QWebEnginePage& page = *viewOf(browser).page();
    return QTest::qWaitFor([&page, pixels] { return page.contentsSize().height() >= pixels; },
                           milliseconds);
}

int scrollOf(const Control& browser) {
    return static_cast<int>(viewOf(browser).page()->scrollPosition().y());
}

void clickInPage(const Control& browser, int x, int y) {
    QWidget* inner = viewOf(browser).focusProxy();
    if (inner == nullptr) {
        qFatal("the browser shows nothing");
    }
    QTest::mouseMove(inner, QPoint(x, y));
    QTest::mouseClick(inner, Qt::LeftButton, {}, QPoint(x, y));
}

bool waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10000);
}

void pressInPage(const Control& browser, const char* key) {
    QTest::keyClick(viewOf(browser).focusProxy(), QKeySequence(QLatin1String(key))[0].key());
}

} // namespace ui::testing
