#pragma once

#include <filesystem>
#include <memory>

#include "app/dlgReport.h"
#include "model/TopicOutline.h"

namespace app {

/// The topic that a line of a report is about: the one whose page or title it names, the longest
/// where there are several. 0 for none.
int topicNamedIn(const model::TopicOutline& outline, text::TextView line);

/// The window with the report of the last command that had one. A new one takes its place.
class LastReport {
public:
    /// The owner of the window is not owned.
    explicit LastReport(ui::Window& owner) : owner_(owner) {}

    /// Not shown yet. With the folder into which something was generated, the window leads there.
    dlgReport& begin(text::TextView caption, ui::HelpContext context,
                     std::filesystem::path folder = {});

    void show(text::TextView caption, ui::HelpContext context, const text::Text& text);

    /// Shows the last one once more, also when it has been closed.
    bool canReopen() const { return report_ != nullptr || !text_.empty(); }
    void reopen();

    const std::filesystem::path& folder() const { return folder_; }

    // The author wants to see the topic that a line is about, or its page.
    ui::Event<text::TextView> TopicAsked;
    ui::Event<text::TextView> PageAsked;

private:
    ui::Window& owner_;
    std::unique_ptr<dlgReport> report_;
    std::filesystem::path folder_;
    // Of the one that was closed.
    text::Text text_;
    text::Text caption_;
    ui::HelpContext context_ = ui::reportHelp;
};

} // namespace app
