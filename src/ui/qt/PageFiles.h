#pragma once

#include <QFileInfo>
#include <QString>

namespace ui {

/// Whether a file lies below a folder in the end: a link may lead out of it.
inline bool liesBelow(const QString& folder, const QString& file) {
    const QString root = QFileInfo(folder).canonicalFilePath();
    const QString place = QFileInfo(file).canonicalFilePath();
    return !root.isEmpty() && place.startsWith(root.endsWith('/') ? root : root + '/');
}

/// What stands in place of a page that is not there, as HTML.
inline QString missingPage(const QString& path) {
    return QStringLiteral("<p>This page is not in the help file:</p><p>%1</p>")
        .arg(path.toHtmlEscaped());
}

} // namespace ui
