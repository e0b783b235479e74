#pragma once

#include <filesystem>
#include <vector>

#include <QKeyEvent>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "text/Text.h"
#include "ui/Control.h"
#include "ui/Key.h"

class QMimeData;

/// What the files of this layer share about the toolkit. Nothing outside src/ui includes it.
namespace ui {

struct NativeWidget {
    explicit NativeWidget(QWidget* shown) : widget(shown) {}
    virtual ~NativeWidget() = default;
    NativeWidget(const NativeWidget&) = delete;
    NativeWidget& operator=(const NativeWidget&) = delete;

    QPointer<QWidget> widget; ///< null once the toolkit has deleted it
};

/// The border between the project's texts and the toolkit's.
QString toQt(text::TextView text);
text::Text fromQt(const QString& text);

/// How many bytes UTF-8 has for it.
std::size_t utf8Length(QStringView text);

/// How much of the beginning fits into so many bytes, in units of the toolkit; no character is cut.
qsizetype unitsWithin(QStringView text, std::size_t length);

QString pathToQt(const std::filesystem::path& path);
std::filesystem::path pathFromQt(const QString& path);

/// The files of this machine among what is pasted or dragged.
std::vector<std::filesystem::path> filesIn(const QMimeData& data);

Key keyOf(const QKeyEvent& event);

/// A new widget for a control in a container.
template <typename Widget>
std::unique_ptr<NativeWidget> makeNative(Container& container) {
    return std::make_unique<NativeWidget>(new Widget(container.client().widget));
}

template <typename Widget>
Widget& widgetOf(const Control& control) {
    return *static_cast<Widget*>(control.native().widget.data());
}

} // namespace ui
