#pragma once

#include <filesystem>

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// Shows one HTML file, in Windows-1252 unless it says otherwise, and stays with it. Scripts do not
/// run, and nothing is fetched but files below one folder.
class Browser : public Control {
public:
    explicit Browser(Container& container);

    /// Where a file is shown from that is shown already.
    enum class Place { asBefore, top };

    /// Pictures and style sheets come from `folder` or below, links followed, and from nowhere
    /// else. A file that is shown already is read anew.
    void navigate(const std::filesystem::path& file, const std::filesystem::path& folder,
                  Place place = Place::asBefore);

    /// When a page is shown from the place as before, and whenever it is read anew, the element
    /// with this id is scrolled into view, as little as is needed. Empty for none.
    void keepInView(TextView id);

    /// A click that neither follows a link nor selects anything: how many characters and pictures
    /// can be seen before it, blanks not counted, and whether it is right behind the last of them
    /// or right before the next.
    Event<std::size_t, bool> Clicked;

    /// The person, or something in the page, wanted to go elsewhere; the page stays.
    Event<> Refused;

private:
    struct Native;
    Native& browser() const;
    int visit_ = 0; ///< tells pages apart that have the same file
    static std::unique_ptr<NativeWidget> make(Browser& browser, Container& container);
};

} // namespace ui
