#include <QEventLoop>
#include <QPageLayout>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>

#include "ui/qt/PageServer.h"
#include "ui/qt/WebSettings.h"

// The part of the browser's library that prints without a window.
namespace ui {

namespace {

/// Goes nowhere.
class PrintedPage : public QWebEnginePage {
public:
    using QWebEnginePage::QWebEnginePage;

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
        return isMainFrame && isPage(url) && type == NavigationTypeTyped;
    }
};

QPageLayout layoutOf(bool onLetter) {
    constexpr double side = 20;   // millimetres
    constexpr double bottom = 22; // the number of the page stands there
    const QPageSize size(onLetter ? QPageSize::Letter : QPageSize::A4);
    return {size, QPageLayout::Portrait, QMarginsF(side, side, side, bottom),
            QPageLayout::Millimeter};
}

QByteArray print(const PageHost& host, const QString& path, bool onLetter) {
    constexpr int longest = 10 * 60 * 1000; // milliseconds, for damage of which nobody knows
    PageServer server(host);
    PagesOnly pagesOnly;
    QWebEngineProfile profile; // keeps nothing on the disk
    profile.setUrlRequestInterceptor(&pagesOnly);
    profile.installUrlSchemeHandler(pageScheme, &server);
    PrintedPage page(&profile);
    lockDown(page);
    QEventLoop printing;
    QByteArray printed;
    QObject::connect(&page, &QWebEnginePage::renderProcessTerminated, &printing, &QEventLoop::quit);
    QObject::connect(&page, &QWebEnginePage::loadFinished, &printing, [&](bool isLoaded) {
        if (!isLoaded) {
            printing.quit();
            return;
        }
        page.printToPdf(
            [&](const QByteArray& bytes) {
                printed = bytes;
                printing.quit();
            },
            layoutOf(onLetter));
    });
    QTimer::singleShot(longest, &printing, &QEventLoop::quit);
    server.wanted = pageUrl(0, path, {});
    page.load(server.wanted);
    printing.exec(QEventLoop::ExcludeUserInputEvents);
    return printed;
}

} // namespace

} // namespace ui

extern "C" Q_DECL_EXPORT void topicsmithPrintPage(const ui::PageHost& host, const QString& path,
                                                  bool onLetter, QByteArray& pdf) {
    ui::prepareEngine();
    pdf = ui::print(host, path, onLetter);
}
