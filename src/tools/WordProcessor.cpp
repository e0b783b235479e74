#include "tools/WordProcessor.h"

#include <utility>

namespace tools {

using platform::AutomationObject;
using platform::AutomationValue;

namespace {

using Object = std::shared_ptr<AutomationObject>;

/// The object in a value; null when there is none.
Object objectIn(const std::optional<AutomationValue>& value) {
    const Object* object = value ? std::get_if<Object>(&*value) : nullptr;
    return object == nullptr ? nullptr : *object;
}

} // namespace

std::unique_ptr<WordProcessor> WordProcessor::start(const CreateAutomation& create,
                                                    std::unique_ptr<TextClipboard> clipboard) {
    Object application = create("Word.Application");
    if (application == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<WordProcessor>(
        new WordProcessor(std::move(application), std::move(clipboard)));
}

WordProcessor::WordProcessor(Object application, std::unique_ptr<TextClipboard> clipboard)
    : application_(std::move(application)), clipboard_(std::move(clipboard)), prepared_(prepare()) {
}

WordProcessor::~WordProcessor() {
    WordProcessor::finish();
}

bool WordProcessor::prepare() {
    constexpr int normalWindow = 0;
    constexpr int outOfSight = -3000;
    const Object documents = objectIn(application_->get("Documents"));
    document_ = documents == nullptr ? nullptr : objectIn(documents->call("Add"));
    if (document_ == nullptr || !application_->set("Visible", true)
        || !application_->set("WindowState", normalWindow)) {
        return false;
    }
    top_ = application_->get("Top");
    return top_ && application_->set("Top", outOfSight);
}

/// The content is asked for each time: a range does not follow what is pasted over it.
bool WordProcessor::callContent(const char* method) {
    const Object content = objectIn(document_->get("Content"));
    return content != nullptr && content->call(method).has_value();
}

SpellChecker::Outcome WordProcessor::check(Text& text, TextView /*place*/) {
    if (!prepared_ || application_ == nullptr) {
        return Outcome::failed;
    }
    clipboard_->clear();
    clipboard_->setText(text);
    if (!callContent("Paste") || !document_->call("Activate") || !document_->call("CheckSpelling")
        || !callContent("Copy")) {
        return Outcome::failed;
    }
    Text corrected = clipboard_->text();
    if (corrected.empty()) {
        return Outcome::failed; // another program holds the clipboard
    }
    text = std::move(corrected);
    return Outcome::checked;
}

/// Each step is done even where another fails: the word processor must not stay behind unseen.
bool WordProcessor::finish() {
    const Object application = std::exchange(application_, nullptr);
    if (application == nullptr) {
        return true;
    }
    bool done = true;
    if (const Object document = std::exchange(document_, nullptr); document != nullptr) {
        done = document->set("Saved", true) && done;
        done = document->call("Close").has_value() && done;
    }
    if (top_) {
        done = application->set("Top", *top_) && done;
    }
    return application->call("Quit").has_value() && done;
}

} // namespace tools
