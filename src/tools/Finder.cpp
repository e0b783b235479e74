#include "tools/Finder.h"

#include <algorithm>

namespace tools {

using model::Topic;

namespace {

/// A whole word has a blank or an end of the text on both sides.
std::size_t findIn(TextView text, std::size_t from, const FindQuestion& question) {
    const TextView term = question.text;
    const auto equal = [&question](char a, char b) {
        return question.matchCase ? a == b : model::lowerCase(a) == model::lowerCase(b);
    };
    const auto isBlankAt = [text](std::size_t i) { return i >= text.size() || text[i] == ' '; };
    while (from <= text.size()) {
        const auto* found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from),
                                        text.end(), term.begin(), term.end(), equal);
        const auto start = static_cast<std::size_t>(found - text.begin());
        if (found == text.end()) {
            break;
        }
        if (!question.wholeWords
            || ((start == 0 || isBlankAt(start - 1)) && isBlankAt(start + term.size()))) {
            return start;
        }
        from = start + 1;
    }
    return Text::npos;
}

} // namespace

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
    const Topic& topic = host.outline().at(currentIndex_);
    const auto search = [&](FindStage stage, TextView text) {
        const std::size_t start = findIn(text, position_, question);
        if (start == Text::npos) {
            position_ = 0;
            return false;
        }
        stage_ = stage;
        position_ = start;
        match_ = {currentIndex_, stage, start, question.text.size()};
        return true;
    };
    if (stage_ == FindStage::title && search(FindStage::title, topic.title)) {
        return true;
    }
    if (!question.bodies) {
        return false;
    }
    const auto searchEdited = [&](FindStage stage, const Text& stored) {
        const std::optional<Text> edited = host.editedText(currentIndex_, stage);
        return search(stage, edited ? *edited : stored);
    };
    if (stage_ != FindStage::body
        && searchEdited(FindStage::shortDescription, topic.shortDescription)) {
        return true;
    }
    return searchEdited(FindStage::body, topic.body);
}

} // namespace tools
