#include "ui/qt/Native.h"

#include <QDir>
#include <QMimeData>
#include <QUrl>

namespace ui {

QString toQt(text::TextView text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

text::Text fromQt(const QString& text) {
    return text.toStdString();
}

std::size_t utf8Length(QStringView text) {
    std::size_t length = 0;
    for (const QChar unit : text) {
        const char16_t code = unit.unicode();
        // The two halves of one character have two bytes each.
        length += code < 0x80 ? 1U : code < 0x800 || unit.isSurrogate() ? 2U : 3U;
    }
    return length;
}

qsizetype unitsWithin(QStringView text, std::size_t length) {
    std::size_t counted = 0;
    qsizetype units = 0;
    while (units < text.size()) {
        const qsizetype next = text[units].isHighSurrogate() ? 2 : 1;
        counted += utf8Length(text.mid(units, next));
        if (counted > length) {
            break;
        }
        units += next;
    }
    return std::min(units, text.size());
}

#ifdef _WIN32
QString pathToQt(const std::filesystem::path& path) {
    return QString::fromStdWString(path.native());
}

std::filesystem::path pathFromQt(const QString& path) {
    return QDir::toNativeSeparators(path).toStdWString();
}
#else
QString pathToQt(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.native()));
}

std::filesystem::path pathFromQt(const QString& path) {
    return QFile::encodeName(path).toStdString();
}
#endif

std::vector<std::filesystem::path> filesIn(const QMimeData& data) {
    std::vector<std::filesystem::path> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            files.push_back(pathFromQt(url.toLocalFile()));
        }
    }
    return files;
}

Key keyOf(const QKeyEvent& event) {
    Key key;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.code = KeyCode::enter;
        break;
    case Qt::Key_Up:
        key.code = KeyCode::up;
        break;
    case Qt::Key_Down:
        key.code = KeyCode::down;
        break;
    case Qt::Key_Escape:
        key.code = KeyCode::escape;
        break;
    default:
        break;
    }
    key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    key.control = event.modifiers().testFlag(Qt::ControlModifier);
    key.alt = event.modifiers().testFlag(Qt::AltModifier);
    return key;
}

} // namespace ui
