#pragma once

#include <QUrl>

namespace ui {

/// The protocol of pages that are no files.
inline constexpr const char* pageScheme = "topicsmith-page";

/// Each help file that is opened in a window has another host, so that pages with the same path are
/// not taken for each other.
inline QString pageHost(int book) {
    return QStringLiteral("book%1").arg(book);
}

/// The address of a page; its anchor may be empty.
inline QUrl pageUrl(int book, const QString& path, const QString& anchor) {
    QUrl url;
    url.setScheme(pageScheme);
    url.setHost(pageHost(book));
    url.setPath(path, QUrl::DecodedMode);
    if (!anchor.isEmpty()) {
        url.setFragment(anchor, QUrl::DecodedMode);
    }
    return url;
}

} // namespace ui
