#include "ui/GridChoice.h"

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include "ui/Twips.h"
#include "ui/Window.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

struct Popup : QWidget {
    Popup(GridChoice& choice, QWidget* parent) : QWidget(parent, Qt::Popup), owner(choice) {
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
        setObjectName(QStringLiteral("gridChoice"));
        setAccessibleName(label());
    }

    static constexpr int margin = 8;
    static constexpr int leastShown = 6;

    int cell() const { return std::max(18, fontMetrics().height()); }
    int shownRows() const { return std::clamp(rows + 1, leastShown, GridChoice::most); }
    int shownColumns() const { return std::clamp(columns + 1, leastShown, GridChoice::most); }

    void choose(int newRows, int newColumns) {
        rows = std::clamp(newRows, 1, GridChoice::most);
        columns = std::clamp(newColumns, 1, GridChoice::most);
        setAccessibleName(label());
        resize(std::max(shownColumns() * cell(), fontMetrics().horizontalAdvance(label()))
                   + 2 * margin,
               shownRows() * cell() + 2 * margin + fontMetrics().height() + 4);
        update();
    }

    QString label() const {
        return QStringLiteral("Rows: %1   Columns: %2").arg(rows).arg(columns);
    }

    void follow(const QPointF& place) {
        const int x = static_cast<int>(place.x()) - margin;
        const int y = static_cast<int>(place.y()) - margin;
        choose(y / cell() + 1, x / cell() + 1);
    }

    void done() {
        hide();
        owner.Chosen.raise(rows, columns);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        QColor line = palette().color(QPalette::Text); // seen on any ground
        line.setAlpha(90);
        painter.setPen(line);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        for (int row = 0; row < shownRows(); ++row) {
            for (int column = 0; column < shownColumns(); ++column) {
                const bool in = row < rows && column < columns;
                const QRect box(margin + column * cell(), margin + row * cell(), cell() - 3,
                                cell() - 3);
                painter.fillRect(box, palette().color(in ? QPalette::Highlight : QPalette::Window));
                painter.drawRect(box);
            }
        }
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect().adjusted(margin, 0, -margin, -margin / 2),
                         Qt::AlignBottom | Qt::AlignHCenter, label());
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (rect().contains(event->position().toPoint()) || event->buttons() != Qt::NoButton) {
            follow(event->position());
        }
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (rect().contains(event->position().toPoint())) {
            follow(event->position());
            done();
        } else {
            hide();
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Right:
            choose(rows, columns + 1);
            break;
        case Qt::Key_Left:
            choose(rows, columns - 1);
            break;
        case Qt::Key_Down:
            choose(rows + 1, columns);
            break;
        case Qt::Key_Up:
            choose(rows - 1, columns);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            done();
            break;
        default:
            QWidget::keyPressEvent(event);
            if (event->key() == Qt::Key_Escape) {
                hide();
            }
        }
    }

    GridChoice& owner;
    int rows = 3;
    int columns = 3;
};

} // namespace

struct GridChoice::Native {
    QPointer<Popup> popup; ///< the window's
};

GridChoice::GridChoice(Window& window)
    : native_(std::make_unique<Native>(Native{new Popup(*this, window.native().widget)})) {}

GridChoice::~GridChoice() {
    delete native_->popup;
}

void GridChoice::show(const ScreenPlace& place) {
    Popup& popup = *native_->popup;
    popup.choose(popup.rows, popup.columns);
    QPoint corner(toPixels(place.left), toPixels(place.top + place.height) + 4);
    if (const QScreen* screen = QGuiApplication::screenAt(corner)) {
        const QRect all = screen->availableGeometry();
        corner.setX(std::min(corner.x(), all.right() - popup.width()));
        corner.setY(std::min(corner.y(), all.bottom() - popup.height()));
    }
    popup.move(corner);
    popup.show();
    popup.setFocus();
}

} // namespace ui
