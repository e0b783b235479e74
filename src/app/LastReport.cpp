#include "app/LastReport.h"

#include <cctype>

#include "text/Address.h"
#include "text/Path.h"
#include "ui/Prompter.h"

namespace app {

using text::Text;
using text::TextView;

namespace {

bool isPartOfWord(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 || std::isalnum(code) != 0;
}

/// Whether a name stands in a line, and is no part of a longer word.
bool names(TextView line, const Text& name) {
    for (std::size_t found = line.find(name); !name.empty() && found != TextView::npos;
         found = line.find(name, found + 1)) {
        const std::size_t end = found + name.size();
        if ((found == 0 || !isPartOfWord(line[found - 1]))
            && (end == line.size() || !isPartOfWord(line[end]))) {
            return true;
        }
    }
    return false;
}

} // namespace

int topicNamedIn(const model::TopicOutline& outline, TextView line) {
    int found = 0;
    std::size_t longest = 0;
    for (int position = 1; position <= outline.count(); ++position) {
        const model::Topic& topic = outline.at(position);
        for (const Text& name : {topic.fileName, topic.title}) {
            if (name.size() > longest && names(line, name)) {
                found = position;
                longest = name.size();
            }
        }
    }
    return found;
}

dlgReport& LastReport::begin(TextView caption, ui::HelpContext context,
                             std::filesystem::path folder) {
    folder_ = std::move(folder);
    report_ = std::make_unique<dlgReport>(owner_, caption, context, !folder_.empty());
    report_->Closed.connect([this] {
        text_ = report_->txtReport.text();
        caption_ = report_->caption();
        context_ = static_cast<ui::HelpContext>(report_->helpContext());
        ui::Window::discard(std::move(report_));
    });
    report_->TopicAsked.connect([this](TextView line) { TopicAsked.raise(line); });
    report_->PageAsked.connect([this](TextView line) { PageAsked.raise(line); });
    report_->FolderAsked.connect([this] {
        ui::Prompter::current().openAddress(text::fileAddress(text::displayText(folder_)));
    });
    return *report_;
}

void LastReport::show(TextView caption, ui::HelpContext context, const Text& text) {
    dlgReport& report = begin(caption, context);
    report.txtReport.setText(text);
    report.show();
}

void LastReport::reopen() {
    if (report_ == nullptr) {
        begin(caption_, context_, folder_).txtReport.setText(text_);
    }
    report_->show();
    report_->activate();
}

} // namespace app
