#include "tools/Finder.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "text/Unicode.h"

namespace tools {

using model::Topic;

namespace {

/// What a search compares.
using Letters = std::vector<char32_t>;

Letters lettersOf(TextView text, bool matchCase) {
    Letters letters;
    while (!text.empty()) {
        const char32_t character = text::takeUtf8(text);
        letters.push_back(matchCase ? character : text::foldedCase(character));
    }
    return letters;
}

/// For each beginning of a term, how much of its end is a beginning, too.
std::vector<std::size_t> overlapsOf(const Letters& term) {
    std::vector<std::size_t> overlaps(term.size());
    std::size_t matched = 0;
    for (std::size_t i = 1; i < term.size(); ++i) {
        while (matched > 0 && term[i] != term[matched]) {
            matched = overlaps[matched - 1];
        }
        matched += term[i] == term[matched] ? 1U : 0U;
        overlaps[i] = matched;
    }
    return overlaps;
}

struct Place {
    std::size_t start;
    std::size_t length;
};

/// Looks at each character once, however often the term begins and does not go on. A whole word has
/// a blank or an end of the text on both sides.
std::optional<Place> findIn(TextView text, std::size_t from, const FindQuestion& question) {
    const Letters term = lettersOf(question.text, question.matchCase);
    const std::vector<std::size_t> overlaps = overlapsOf(term);
    const auto isBlankAt = [text](std::size_t i) { return i >= text.size() || text[i] == ' '; };
    while (from < text.size() && text::continuesCharacter(text[from])) {
        ++from; // the search goes on behind the first byte of the last match
    }
    std::vector<std::size_t> starts(term.size()); // of the last characters, round and round
    std::size_t matched = 0;
    std::size_t read = 0;
    for (TextView rest = text.substr(std::min(from, text.size())); !rest.empty();) {
        starts[read % term.size()] = text.size() - rest.size();
        const char32_t own = text::takeUtf8(rest);
        const char32_t character = question.matchCase ? own : text::foldedCase(own);
        while (matched > 0 && (matched == term.size() || character != term[matched])) {
            matched = overlaps[matched - 1];
        }
        matched += character == term[matched] ? 1U : 0U;
        ++read;
        if (matched < term.size()) {
            continue;
        }
        const std::size_t start = starts[read % term.size()];
        const std::size_t end = text.size() - rest.size();
        if (!question.wholeWords || ((start == 0 || isBlankAt(start - 1)) && isBlankAt(end))) {
            return Place{start, end - start};
        }
    }
    return {};
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
        const std::optional<Place> place = findIn(text, position_, question);
        if (!place) {
            position_ = 0;
            return false;
        }
        stage_ = stage;
        position_ = place->start;
        match_ = {currentIndex_, stage, place->start, place->length};
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
