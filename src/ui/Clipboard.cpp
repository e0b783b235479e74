#include "ui/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "text/TextLines.h"
#include "ui/qt/Native.h"
#include "ui/qt/TextHooks.h"

namespace ui {

struct Clipboard::Native {
    QMetaObject::Connection watch;
};

Clipboard::Clipboard() : native_(std::make_unique<Native>()) {
    native_->watch = QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged,
                                      [this] { Change.raise(); });
}

Clipboard::~Clipboard() {
    QObject::disconnect(native_->watch);
}

void Clipboard::clear() {
    QGuiApplication::clipboard()->clear();
}

void Clipboard::setText(text::TextView text) {
    QGuiApplication::clipboard()->setText(toQt(text));
}

bool Clipboard::hasText() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasText();
}

text::Text Clipboard::text() const {
    return text::withLineBreaks(fromQt(QGuiApplication::clipboard()->text()));
}

Incoming Clipboard::content() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? Incoming() : incomingFrom(*data);
}

bool Clipboard::hasMoreThanText() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && (data->hasImage() || data->hasUrls() || data->hasHtml());
}

} // namespace ui
