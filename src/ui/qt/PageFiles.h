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

/// No picture and no other part of a page is larger, in bytes.
inline constexpr qint64 largestPart = qint64(32) << 20U;

/// Whether a page may have a file: one below a folder, by its name and in the end, and neither a
/// pipe nor a device, which never end, nor huge. The same for everything that draws pages.
inline bool mayBeShown(const QString& folder, const QString& file) {
    if (!isNamedBelow(folder, file) || !liesBelow(folder, file)) {
        return false;
    }
    const QFileInfo facts(file);
    return facts.isFile() && facts.size() <= largestPart;
}

/// What stands in place of a page that is not there, as HTML.
inline QString missingPage(const QString& path) {
    return QStringLiteral("<p>This page is not in the help file:</p><p>%1</p>")
        .arg(path.toHtmlEscaped());
}

} // namespace ui
