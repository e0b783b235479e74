#include "editor/WindowPlace.h"

namespace editor {

using ui::Window;
using ui::WindowState;

void restorePlace(Window& window, const ui::Settings& settings, const char* section, int width,
                  int height) {
    width = settings.number(section, "Width", width);
    height = settings.number(section, "Height", height);
    window.setSize(width, height);
    window.setPosition(settings.number(section, "Left", (Window::screenWidth() - width) / 2),
                       settings.number(section, "Top", (Window::screenHeight() - height) / 2));
    const int state = settings.number(section, "Window State", 0);
    if (state == 1 || state == 2) {
        window.setState(static_cast<WindowState>(state));
    }
}

void storePlace(const Window& window, ui::Settings& settings, const char* section) {
    if (window.state() == WindowState::minimised) {
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

} // namespace editor
