#pragma once

#include <QWebEnginePage>
#include <QWebEngineSettings>

namespace ui {

/// What no page may do, whoever wrote it.
inline void lockDown(QWebEnginePage& page) {
    QWebEngineSettings& settings = *page.settings();
    settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

} // namespace ui
