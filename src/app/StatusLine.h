#pragma once

#include <map>
#include <system_error>

#include "model/Project.h"
#include "ui/Label.h"
#include "ui/Window.h"

namespace app {

/// What the line at the bottom goes on saying until it has come right.
enum class Trouble { file, input, output, recovery };

/// Says in the window's title and its bottom line which project is open and how it fares. There is
/// no message for most failures, but an author should not be left in the dark.
class StatusLine {
public:
    /// Nothing is owned.
    StatusLine(ui::Window& window, ui::Label& label, const model::Project& project)
        : window_(window), label_(label), project_(project) {}

    /// Which topic is current, unless there is trouble to be told of.
    void update();

    /// As long as nothing is open, the window shows the program's name alone.
    void showDocument();

    /// Something else, until the next update().
    void notice(const text::Text& text);

    /// An empty text for what has come right. What is new is beeped at.
    void setTrouble(Trouble kind, const text::Text& text);

    /// The same for a command that could not be done.
    void setFailure(Trouble kind, const std::error_code& error);

private:
    ui::Window& window_;
    ui::Label& label_;
    const model::Project& project_;
    std::map<Trouble, text::Text> troubles_; ///< what is wrong until it is mended
};

} // namespace app
