#include "app/StatusLine.h"

#include <algorithm>

#include "text/Path.h"
#include "ui/Prompter.h"

namespace app {

using text::Text;

void StatusLine::update() {
    const bool isTroubled =
        std::any_of(troubles_.begin(), troubles_.end(),
                    [](const auto& trouble) { return !trouble.second.empty(); });
    const int count = project_.outline().count();
    if (isTroubled) {
        notice({});
    } else if (count == 0) {
        notice("No topics");
    } else {
        notice("Topic " + std::to_string(project_.currentIndex()) + " of " + std::to_string(count));
    }
}

void StatusLine::showDocument() {
    const bool any = project_.hasFile() || project_.dataChanged();
    window_.setDocument(any ? project_.projectFileTitle() : Text());
}

void StatusLine::notice(const Text& text) {
    showDocument();
    Text line = project_.projectFileTitle();
    const auto add = [&line](const Text& part) { line += part.empty() ? part : "     " + part; };
    for (const auto& trouble : troubles_) {
        add(trouble.second);
    }
    add(text);
    label_.setCaption(line);
}

void StatusLine::setTrouble(Trouble kind, const Text& text) {
    const bool isNews = troubles_[kind] != text;
    if (!text.empty() && (isNews || kind != Trouble::recovery)) { // which is tried again and again
        ui::Prompter::current().beep();
    }
    if (isNews) {
        troubles_[kind] = text;
        update();
    }
}

void StatusLine::setFailure(Trouble kind, const std::error_code& error) {
    setTrouble(kind, error ? "Not done: " + error.message() : Text());
}

} // namespace app
