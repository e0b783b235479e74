#include "ui/qt/Native.h"

#include <QDir>

#include "text/CodePage.h"

namespace ui {

QString toQt(text::TextView text) {
    return QString::fromStdString(text::toUtf8(text));
}

text::Text fromQt(const QString& text) {
    return text::fromUtf8(text.toStdString());
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
    default:
        break;
    }
    key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    key.control = event.modifiers().testFlag(Qt::ControlModifier);
    key.alt = event.modifiers().testFlag(Qt::AltModifier);
    return key;
}

} // namespace ui
