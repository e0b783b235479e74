#include "compile/HelpWindows.h"

#include <algorithm>

#include "text/Text.h"

namespace compile {

namespace {

/// Contents, index and favourites, and the buttons that most help files show.
constexpr std::uint32_t usualProperties = 0x43120;
constexpr std::uint32_t searchProperties = 0x20400; ///< the tab, and that it knows operators
constexpr std::uint32_t usualButtons = 0x304E;

} // namespace

WindowRow windowRow(const workshop::WindowType& window, const Place& place,
                    const TextEncoder& encoder,
                    const std::function<std::string(const std::string& page)>& pageOf) {
    const auto page = [&](const std::string& name) {
        return encoder.text(pageOf(name), place, "the file name");
    };
    const auto caption = [&](const std::string& text) {
        return encoder.text(text, place, "the caption");
    };
    WindowRow row;
    row.name = encoder.text(window.name, place, "the window's name");
    row.caption = caption(window.caption);
    row.defaultTopic = page(window.defaultTopic);
    row.home = page(window.home);
    row.jump1File = page(window.jump1File);
    row.jump1Text = caption(window.jump1Text);
    row.jump2File = page(window.jump2File);
    row.jump2Text = caption(window.jump2Text);
    row.properties = window.properties;
    row.paneWidth = window.paneWidth;
    row.buttons = window.buttons;
    if (window.rectangle) {
        row.rectangle.assign(window.rectangle->begin(), window.rectangle->end());
    }
    row.style = window.style;
    row.extendedStyle = window.extendedStyle;
    row.show = window.show;
    row.closed = window.closed;
    row.tab = window.tab;
    row.tabPosition = window.tabPosition;
    row.notify = window.notify;
    return row;
}

void completeWindows(std::vector<WindowRow>& windows, const SystemFacts& facts) {
    if (windows.empty()) {
        WindowRow& window = windows.emplace_back();
        window.name = "main";
        window.properties = usualProperties | (facts.fullTextSearch ? searchProperties : 0);
        window.buttons = usualButtons;
    }
    for (WindowRow& window : windows) {
        const auto fill = [](std::string& own, const std::string& usual) {
            own = own.empty() ? usual : own;
        };
        fill(window.caption, facts.title);
        window.contents = facts.contentsFile;
        window.index = facts.indexFile;
        fill(window.defaultTopic, facts.defaultTopic);
        fill(window.home, facts.defaultTopic);
    }
}

bool putFirst(std::vector<WindowRow>& windows, const std::string& name) {
    const auto found =
        std::find_if(windows.begin(), windows.end(), [&name](const WindowRow& window) {
            return text::equalIgnoringCase(window.name, name);
        });
    if (found == windows.end()) {
        return false;
    }
    std::rotate(windows.begin(), found, found + 1);
    return true;
}

} // namespace compile
