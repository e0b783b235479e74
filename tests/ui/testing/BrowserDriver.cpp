#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#ifdef TOPICSMITH_WEB_ENGINE
#include <QWebEnginePage>
#include <QWebEngineView>
#endif

#include "ui/qt/Native.h"
#include "ui/testing/Driver.h"

// Kept apart from the rest of the driver: the browser's headers are large.
namespace ui::testing {

namespace {

/// Null in a web engine.
QTextBrowser* richText(const Control& browser) {
    return qobject_cast<QTextBrowser*>(browser.native().widget.data());
}

#ifdef TOPICSMITH_WEB_ENGINE
QWebEngineView& viewOf(const Control& browser) {
    return static_cast<QWebEngineView&>(*browser.native().widget);
}

QString webText(const Control& browser) {
    auto text = std::make_shared<std::optional<QString>>();
    viewOf(browser).page()->toPlainText([text](const QString& found) { *text = found; });
    if (!QTest::qWaitFor([text] { return text->has_value(); }, 30000)) {
        qFatal("the browser does not answer");
    }
    return **text;
}

int webHeight(const Control& browser) {
    return static_cast<int>(viewOf(browser).page()->contentsSize().height());
}

int webScroll(const Control& browser) {
    return static_cast<int>(viewOf(browser).page()->scrollPosition().y());
}

QWidget* webInside(const Control& browser) {
    return viewOf(browser).focusProxy();
}
#else
QString webText(const Control& /*browser*/) {
    return {};
}
int webHeight(const Control& /*browser*/) {
    return 0;
}
int webScroll(const Control& /*browser*/) {
    return 0;
}
QWidget* webInside(const Control& /*browser*/) {
    return nullptr;
}
#endif

/// The widget that takes clicks and keys.
QWidget& insideOf(const Control& browser) {
    QTextBrowser* text = richText(browser);
    QWidget* inside = text != nullptr ? text->viewport() : webInside(browser);
    if (inside == nullptr) {
        qFatal("the browser shows nothing");
    }
    return *inside;
}

} // namespace

bool hasWebEngine(const Control& browser) {
    return richText(browser) == nullptr;
}

std::string waitForPage(const Control& browser, const std::string& expected) {
    std::string text;
    for (int attempt = 0; attempt < 200; ++attempt) {
        const QTextBrowser* rich = richText(browser);
        text = (rich != nullptr ? rich->toPlainText() : webText(browser)).toStdString();
        if (text.find(expected) != std::string::npos) {
            break;
        }
        QTest::qWait(50);
    }
    return text;
}

bool waitForPageHeight(const Control& browser, int pixels, int milliseconds) {
    const auto height = [&browser] {
        const QTextBrowser* rich = richText(browser);
        return rich != nullptr ? static_cast<int>(rich->document()->size().height())
                               : webHeight(browser);
    };
    return QTest::qWaitFor([&height, pixels] { return height() >= pixels; }, milliseconds);
}

int scrollOf(const Control& browser) {
    const QTextBrowser* rich = richText(browser);
    return rich != nullptr ? rich->verticalScrollBar()->value() : webScroll(browser);
}

void clickInPage(const Control& browser, int x, int y) {
    QWidget& inside = insideOf(browser);
    QTest::mouseMove(&inside, QPoint(x, y));
    QTest::mouseClick(&inside, Qt::LeftButton, {}, QPoint(x, y));
}

bool waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10000);
}

void pressInPage(const Control& browser, const char* key) {
    QTest::keyClick(&insideOf(browser), QKeySequence(QLatin1String(key))[0].key());
}

} // namespace ui::testing
