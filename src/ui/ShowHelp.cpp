#include "ui/ShowHelp.h"

namespace ui {

namespace {

std::function<void(int)>& shower() {
    static std::function<void(int)> show;
    return show;
}

} // namespace

void showHelp(int context) {
    if (shower()) {
        shower()(context);
    }
}

void takeOverHelp(std::function<void(int context)> show) {
    shower() = std::move(show);
}

} // namespace ui
