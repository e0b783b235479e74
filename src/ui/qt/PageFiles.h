#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace ui {

#ifdef _WIN32
inline constexpr Qt::CaseSensitivity caseOfPaths = Qt::CaseInsensitive;
#else
inline constexpr Qt::CaseSensitivity caseOfPaths = Qt::CaseSensitive;
#endif

/// Whether a file lies below a folder by its name alone: nothing is looked for on a disk, nor on
/// another machine, which would learn of it.
inline bool isNamedBelow(const QString& folder, const QString& file) {
    const QString root = QDir::cleanPath(QDir::fromNativeSeparators(folder));
    const QString place = QDir::cleanPath(QDir::fromNativeSeparators(file));
    return place.startsWith(root.endsWith('/') ? root : root + '/', caseOfPaths)
           && !place.contains(QLatin1String("/../")) && !place.contains(QLatin1String("??"));
}

/// Whether a file lies below a folder in the end: a link may lead out of it.
inline bool liesBelow(const QString& folder, const QString& file) {
    const QString root = QFileInfo(folder).canonicalFilePath();
    const QString place = QFileInfo(file).canonicalFilePath();
    return !root.isEmpty() && place.startsWith(root.endsWith('/') ? root : root + '/', caseOfPaths);
}

/// What stands in place of a page that is not there, as HTML.
inline QString missingPage(const QString& path) {
    return QStringLiteral("<p>This page is not in the help file:</p><p>%1</p>")
        .arg(path.toHtmlEscaped());
}

} // namespace ui
