#include "ui/qt/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#ifdef TOPICSMITH_SVG
#include <QSvgRenderer>
#endif

#include "ui/Twips.h"
#include "ui/qt/Native.h"

static void initialiseResources() {
    Q_INIT_RESOURCE(icons);
}

namespace ui {

namespace {

QString fileOf(TextView name) {
    initialiseResources();
    return QStringLiteral(":/icons/%1").arg(toQt(name));
}

#ifdef TOPICSMITH_SVG
void draw(QPainter& painter, const QRect& rect, QByteArray drawing, const QColor& ink) {
    drawing.replace("currentColor", ink.name().toLatin1());
    QSvgRenderer renderer(drawing);
    renderer.render(&painter, rect);
}
#else
/// Drawn beforehand, large, and black where the ink goes.
void draw(QPainter& painter, const QRect& rect, const QByteArray& drawing, const QColor& ink) {
    const QSizeF size = QSizeF(rect.size()) * painter.device()->devicePixelRatioF();
    QImage image = QImage::fromData(drawing).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if ((line[x] & RGB_MASK) == 0) {
                line[x] |= ink.rgb() & RGB_MASK;
            }
        }
    }
    painter.drawImage(rect,
                      image.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
#endif

/// Draws at the size that is asked for, with the text colour of the moment as ink.
class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role =
            mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        const QColor ink = QGuiApplication::palette().color(group, role);
        painter->save();
        if (mode == QIcon::Disabled) {
            painter->setOpacity(0.5);
        }
        draw(*painter, rect, drawing_, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawingEngine(drawing_); }

private:
    QByteArray drawing_;
};

} // namespace

QIcon imageNamed(TextView name) {
    QFile file(fileOf(name));
    if (name.empty() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new DrawingEngine(file.readAll()));
}

} // namespace ui
