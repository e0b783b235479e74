#pragma once

#include <filesystem>

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// Shows one HTML file, in Windows-1252, and stays with it. Scripts do not run, and nothing is
/// fetched but files below one folder.
class Browser : public Control {
public:
    explicit Browser(Container& container);

    /// Pictures and style sheets come from `folder` or below, links followed, and from nowhere
    /// else. A file that is shown already is read anew; the place to which it was scrolled stays.
    void navigate(const std::filesystem::path& file, const std::filesystem::path& folder);

    /// The person, or something in the page, wanted to go elsewhere; the page stays.
    Event<> Refused;

private:
    struct Native;
    Native& browser() const;
    static std::unique_ptr<NativeWidget> make(Browser& browser, Container& container);
};

} // namespace ui
