#include "tools/SpellingScan.h"

#include <algorithm>

namespace tools {

namespace {

/// A tag that is still being written: its words are none yet.
bool isInUnfinishedTag(TextView text, std::size_t word) {
    constexpr std::size_t longest = 500;
    const std::size_t start = word - std::min(word, longest);
    const TextView before = text.substr(start, word - start);
    const std::size_t mark = before.find_last_of("<>\n");
    if (mark == TextView::npos || before[mark] != '<') {
        return false;
    }
    const char next = text[start + mark + 1];
    return next == '/' || (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z');
}

/// In "{{name}}".
bool isInVariable(TextView text, const SpellingWord& word) {
    const TextView before = text.substr(0, word.start);
    const TextView behind = text.substr(word.start + word.length);
    const std::size_t open = before.find_last_of("{} \n<>");
    const std::size_t close = behind.find_first_of("{} \n<>");
    return open != TextView::npos && open > 0 && before.substr(open - 1, 2) == "{{"
           && close != TextView::npos && behind.substr(close, 2) == "}}";
}

} // namespace

bool SpellingScan::goOn(int words) {
    constexpr std::size_t most = 1000;
    for (; words > 0; --words) {
        auto word = words_.next();
        if (!word || unknown_.size() == most) {
            return false;
        }
        if (!personal_.knows(word->letters) && !dictionary_.knows(word->letters)
            && !isInUnfinishedTag(text_, word->start) && !isInVariable(text_, *word)) {
            unknown_.push_back(std::move(*word));
        }
    }
    return true;
}

} // namespace tools
