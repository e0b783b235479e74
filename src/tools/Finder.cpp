#include "tools/Finder.h"

#include <algorithm>
#include <vector>

namespace tools {

using model::Topic;

namespace {

/// For each beginning of a text, how much of its end is a beginning, too.
std::vector<std::size_t> overlapsOf(TextView text) {
    std::vector<std::size_t> overlaps(text.size());
    std::size_t matched = 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        while (matched > 0 && text[i] != text[matched]) {
            matched = overlaps[matched - 1];
        }
        matched += text[i] == text[matched] ? 1U : 0U;
        overlaps[i] = matched;
    }
    return overlaps;
}

/// Looks at each character once, however often the term begins and does not go on. A whole word has
/// a blank or an end of the text on both sides.
std::size_t findIn(TextView text, std::size_t from, const FindQuestion& question) {
    const Text term = question.matchCase ? question.text : text::lowerCase(question.text);
    const std::vector<std::size_t> overlaps = overlapsOf(term);
    const auto isBlankAt = [text](std::size_t i) { return i >= text.size() || text[i] == ' '; };
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        const char character = question.matchCase ? text[i] : text::lowerCase(text[i]);
        while (matched > 0 && (matched == term.size() || character != term[matched])) {
            matched = overlaps[matched - 1];
        }
        matched += character == term[matched] ? 1U : 0U;
        if (matched < term.size()) {
            continue;
        }
        const std::size_t start = i + 1 - term.size();
        if (!question.wholeWords || ((start == 0 || isBlankAt(start - 1)) && isBlankAt(i + 1))) {
            return start;
        }
    }
    return Text::npos;
}

} // namespace

Finder::Outcome Finder::next(const FindQuestion& question, FindHost& host) {
    const Finder before = *this;
    const auto count = static_cast<std::size_t>(host.outline().count());
    // Topics may have come or gone since the last match.
    newSearch_ = newSearch_ || searched_.size() != count;
    if (newSearch_) {
        searched_.assign(count, false);
        currentIndex_ = host.selectedTopic();
        stage_ = FindStage::title;
        position_ = 0;
        foundAny_ = false;
    } else {
        ++position_;
    }
    newSearch_ = false;
    do {
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
    } while (leaveTopic());
    newSearch_ = true;
    return Outcome::searched;
}

bool Finder::leaveTopic() {
    stage_ = FindStage::title;
    position_ = 0;
    const auto current = searched_.begin() + (currentIndex_ - 1);
    *current = true;
    auto next = std::find(current, searched_.end(), false);
    if (next == searched_.end()) {
        next = std::find(searched_.begin(), current, false);
        if (next == current) {
            return false;
        }
    }
    currentIndex_ = static_cast<int>(next - searched_.begin()) + 1;
    return true;
}

void Finder::topicsSwapped(int a, int b) {
    const auto known = static_cast<int>(searched_.size());
    if (a > known || b > known) {
        return;
    }
    std::vector<bool>::swap(searched_[static_cast<std::size_t>(a) - 1],
                            searched_[static_cast<std::size_t>(b) - 1]);
    if (currentIndex_ == a || currentIndex_ == b) {
        currentIndex_ = a + b - currentIndex_;
    }
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
