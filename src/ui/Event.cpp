#include "ui/Event.h"

#include <exception>

#include "ui/Prompter.h"

namespace ui {

namespace {

int runningHandlers = 0;
void (*whenNoneRuns)() = nullptr;

} // namespace

RunningHandler::RunningHandler() noexcept {
    ++runningHandlers;
}

RunningHandler::~RunningHandler() {
    if (--runningHandlers == 0 && whenNoneRuns != nullptr) {
        whenNoneRuns();
    }
}

bool RunningHandler::isAny() {
    return runningHandlers > 0;
}

void RunningHandler::afterTheLast(void (*function)()) {
    whenNoneRuns = function;
}

void reportException() noexcept {
    try {
        Text what = "Something unexpected went wrong.";
        try {
            throw;
        } catch (const std::exception& exception) {
            what += "\n\n" + Text(exception.what());
        } catch (...) { // nothing more is known of it
        }
        Prompter::current().ask(nullptr, {what, {}, Buttons::ok, QuestionIcon::critical});
    } catch (...) { // not even that can be said
    }
}

} // namespace ui
