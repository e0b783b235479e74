#pragma once

#include <optional>
#include <string>

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// Where a browser takes its pages from.
class PageSource {
public:
    virtual ~PageSource() = default;

    /// The bytes of a page or of what it shows, by a path like "/html/setup.htm" in UTF-8; nothing
    /// when there is none.
    virtual std::optional<std::string> read(const std::string& path) = 0;
};

/// Shows pages that are no files of their own, with their pictures and style sheets. Links between
/// them work, with a way back. Scripts do not run, and nothing is fetched but from the source.
/// Places are a path, or a path and "#" and an anchor, in UTF-8.
class PageBrowser : public Control {
public:
    /// The source is not owned and must outlive the browser.
    PageBrowser(Container& container, PageSource& source);

    /// The source has become another: the way back is forgotten when the next page is there.
    void reset();

    void show(const std::string& place);
    std::string shown() const; ///< empty before anything is

    bool canGoBack() const;
    bool canGoForward() const;
    void goBack();
    void goForward();

    /// Marks a text wherever it stands in the page that is shown; empty takes the marks away.
    void mark(const std::string& text);

    /// Asks for the printer, too. Returns when the page is printed; false when that failed.
    bool print();

    /// Larger for a step of 1, smaller for -1; 0 is the usual size.
    void zoom(int step);

    Event<> Moved;                          ///< another page or place is shown, for whatever reason
    Event<const std::string&> OutsideClick; ///< a link to elsewhere; its address

private:
    struct Native;
    Native& browser() const;
    static std::unique_ptr<NativeWidget> make(PageBrowser& browser, Container& container,
                                              PageSource& source);
};

} // namespace ui
