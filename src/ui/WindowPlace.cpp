#include "ui/WindowPlace.h"

#include <algorithm>

namespace ui {

namespace {

/// Of the window manager's title bar, which nobody knows before the window is shown.
constexpr int titleHeight = 540;

} // namespace

int largestHeight() {
    return Window::screenHeight() - titleHeight;
}

void restoreSize(Window& window, const Settings& settings, const char* section, int width,
                 int height) {
    window.setSize(std::min(settings.number(section, "Width", width), Window::screenWidth()),
                   std::min(settings.number(section, "Height", height), largestHeight()));
}

void restoreState(Window& window, const Settings& settings, const char* section) {
    const int state = settings.number(section, "Window State", 0);
    if (state == 1 || state == 2) {
        window.setState(static_cast<WindowState>(state));
    }
}

void restorePlace(Window& window, const Settings& settings, const char* section, int width,
                  int height) {
    restoreSize(window, settings, section, width, height);
    const int lastLeft = std::max(Window::screenWidth() - window.width(), 0);
    const int lastTop = std::max(largestHeight() - window.height(), 0);
    window.setPosition(std::clamp(settings.number(section, "Left", lastLeft / 2), 0, lastLeft),
                       std::clamp(settings.number(section, "Top", lastTop / 2), 0, lastTop));
    restoreState(window, settings, section);
}

void storePlace(const Window& window, Settings& settings, const char* section) {
    if (window.state() == WindowState::minimised || window.isDocked()) {
        return;
    }
    settings.setNumber(section, "Window State", static_cast<int>(window.state()));
    if (window.state() == WindowState::normal) {
        settings.setNumber(section, "Top", window.top());
        settings.setNumber(section, "Left", window.left());
        settings.setNumber(section, "Height", window.height());
        settings.setNumber(section, "Width", window.width());
    }
}

} // namespace ui
