#include "ui/qt/WebSettings.h"

#include <QQuickWindow>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineUrlScheme>

#include "ui/qt/PageScheme.h"

namespace ui {

namespace {

void registerPageScheme() {
    QWebEngineUrlScheme scheme(pageScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

/// Through graphics drivers, the toolkit composes the whole window anew for each change beside a
/// page, which takes ten milliseconds where the processor does the drivers' work, and makes the
/// window itself anew when it gets its first page. Pages of help have nothing that would need a
/// driver.
void drawWithoutGraphicsDriver() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) { // somebody knows better
        QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    }
}

} // namespace

void prepareEngine() {
    static const bool done = [] {
        registerPageScheme();
        drawWithoutGraphicsDriver();
        return true;
    }();
    static_cast<void>(done);
}

void lockDown(QWebEnginePage& page) {
    QWebEngineSettings& settings = *page.settings();
    settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

} // namespace ui
