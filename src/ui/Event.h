#pragma once

#include <cassert>
#include <functional>
#include <utility>

namespace ui {

/// Tells the person of the exception that is being handled. No exception may travel on through the
/// toolkit.
void reportException() noexcept;

/// Stands while what the toolkit has called for is done; see Window::discard().
class RunningHandler {
public:
    RunningHandler() noexcept;
    ~RunningHandler();
    RunningHandler(const RunningHandler&) = delete;
    RunningHandler& operator=(const RunningHandler&) = delete;

    static bool isAny();

    /// Is called from now on whenever the last one has ended.
    static void afterTheLast(void (*function)());
};

/// Calls what the toolkit has called for; an exception ends here.
template <typename Function>
void guarded(const Function& function) noexcept {
    const RunningHandler running;
    try {
        function();
    } catch (...) {
        reportException();
    }
}

/// Something that happens, mostly what a person does to a control or window: what the program does
/// to a control raises no event. It has at most one handler: with several, their order would be
/// part of what the program does, and nobody would see it. Whoever wants to know as well is told by
/// the one that is connected.
template <typename... Arguments>
class Event {
public:
    /// There must be no handler yet: one that is replaced in silence is missed by whoever relies on
    /// it.
    void connect(std::function<void(Arguments...)> handler) {
        assert(!handler_ && "the event has a handler already");
        handler_ = std::move(handler);
    }

    void disconnect() { handler_ = nullptr; }

    bool isConnected() const { return static_cast<bool>(handler_); }

    /// For whoever has the event as a member.
    void raise(Arguments... arguments) const noexcept {
        guarded([&] {
            const auto handler = handler_; // it may be gone before it returns
            if (handler) {
                handler(arguments...);
            }
        });
    }

private:
    std::function<void(Arguments...)> handler_;
};

} // namespace ui

/// UI_ON(lvLevels, DblClick) calls lvLevels_DblClick: a handler's name and its event cannot part.
#define UI_ON(control, event)                                                                      \
    (control).event.connect([this](auto&&... arguments) { control##_##event(arguments...); })
