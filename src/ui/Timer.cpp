#include "ui/Timer.h"

#include <QTimer>

namespace ui {

struct Timer::Native {
    QTimer timer;
};

Timer::Timer() : native_(std::make_unique<Native>()) {
    native_->timer.setSingleShot(true);
    QObject::connect(&native_->timer, &QTimer::timeout, [this] { Tick.raise(); });
}

Timer::~Timer() = default;

void Timer::start(int milliseconds) {
    native_->timer.start(milliseconds);
}

void Timer::stop() {
    native_->timer.stop();
}

bool Timer::isRunning() const {
    return native_->timer.isActive();
}

} // namespace ui
