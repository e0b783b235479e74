#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "ui/Event.h"

namespace ui {

/// The program as the toolkit sees it. Made first, before any window, and kept until the end.
class Application {
public:
    /// Takes the toolkit's own arguments away. `name` is shown to the person; `version` is for the
    /// desktop. Without windows it needs no screen.
    Application(int& argc, char** argv, const char* name, const char* version,
                bool hasWindows = true);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// What is left of the command line, without the program.
    std::vector<std::filesystem::path> arguments() const;

    /// A folder of the person's for files that can be made again; made if it is missing.
    static std::filesystem::path userFolder();

    /// A page's file there that no other running program of this kind has.
    static std::filesystem::path ownPageFile();

    /// Handles events until the last window is closed.
    int run();

    /// The program is about to be ended from outside, by a signal or with the desktop: what must
    /// not be lost is to be kept now, without a question.
    Event<> Ending;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
