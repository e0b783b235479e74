#pragma once

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
/// to a control raises no event. It has at most one handler.
template <typename... Arguments>
class Event {
public:
    void connect(std::function<void(Arguments...)> handler) { handler_ = std::move(handler); }

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
