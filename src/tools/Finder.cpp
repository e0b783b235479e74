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
        const bool found = searchTopic(question, host);
        const bool goesOn = found ? host.showMatch(match_) : !question.bodies || host.leaveBody();
        if (!goesOn) {
            *this = before;
            return Outcome::stopped;
        }
        if (found) {
            foundAny_ = true;
            return Outcome::found;
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
    const auto findInEdited = [&](FindStage stage, const Text& stored) {
        const std::optional<Text> edited = host.editedText(currentIndex_, stage);
        return findIn(stage, edited ? *edited : stored);
    };
    if (stage_ != FindStage::body
        && findInEdited(FindStage::shortDescription, topic.shortDescription)) {
        return true;
    }
    return findInEdited(FindStage::body, topic.body);
}

} // namespace tools
