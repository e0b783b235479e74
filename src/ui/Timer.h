#pragma once

#include <memory>

#include "ui/Event.h"

namespace ui {

/// Raises one event after a while.
class Timer {
public:
    Timer();
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void start(int milliseconds);
    void stop();
    bool isRunning() const;

    Event<> Tick;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
