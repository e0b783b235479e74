#include "tools/Finder.h"

namespace tools {

using model::Topic;

Text normaliseForFind(TextView text, const FindQuestion& question) {
    Text normalised = question.matchCase ? Text(text) : model::lowerCase(text);
    return question.wholeWords ? ' ' + normalised + ' ' : normalised;
}

Finder::Outcome Finder::next(const FindQuestion& question, FindHost& host) {
    const Finder before = *this;
    const int count = host.outline().count();
    // Topics may have gone since the last match.
    newSearch_ = newSearch_ || currentIndex_ > count || startIndex_ > count;
    if (newSearch_) {
        startIndex_ = currentIndex_ = host.selectedTopic();
        stage_ = FindStage::title;
        position_ = 0;
        foundAny_ = false;
    } else {
        ++position_;
    }
    newSearch_ = false;
    for (bool first = true; first || currentIndex_ != startIndex_; first = false) {
        if (searchTopic(question, host)) {
            foundAny_ = true;
            return Outcome::found;
        }
        if (question.bodies && !host.leaveBody()) {
            *this = before;
            return Outcome::stopped;
        }
        stage_ = FindStage::title;
        position_ = 0;
        currentIndex_ = currentIndex_ == count ? 1 : currentIndex_ + 1;
    }
    newSearch_ = true;
    return Outcome::searched;
}

/// Searches what is left of the current topic.
bool Finder::searchTopic(const FindQuestion& question, const FindHost& host) {
    const Text term = normaliseForFind(question.text, question);
    const Topic& topic = host.outline().at(currentIndex_);
    const auto findIn = [&](FindStage stage, TextView text) {
        const std::size_t start = normaliseForFind(text, question).find(term, position_);
        if (start == Text::npos) {
            position_ = 0;
            return false;
        }
        stage_ = stage;
        position_ = start;
        match_ = {currentIndex_, stage, start, question.text.size()};
        return true;
    };
    if (stage_ == FindStage::title && findIn(FindStage::title, topic.title)) {
        return true;
    }
    if (!question.bodies) {
        return false;
    }
    if (stage_ != FindStage::body && findIn(FindStage::shortDescription, topic.shortDescription)) {
        return true;
    }
    const std::optional<Text> edited = host.editedBody(currentIndex_);
    return findIn(FindStage::body, edited ? *edited : topic.body);
}

} // namespace tools
