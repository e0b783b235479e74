#include "help/HelpSearch.h"

#include <algorithm>

namespace help {

namespace {

bool isOfWord(char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9')
           || static_cast<unsigned char>(character) >= 0x80;
}

/// Scripts without blanks between words begin here, in the first byte of a character.
bool needsNoBlank(char character) {
    return static_cast<unsigned char>(character) >= 0xE3;
}

/// How often a word begins in a text, up to a limit.
int countOf(std::string_view word, std::string_view text) {
    constexpr int enough = 50;
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos && count < enough;
         at = text.find(word, at + word.size())) {
        const bool begins = at == 0 || !isOfWord(text[at - 1]) || !isOfWord(word.front())
                            || needsNoBlank(word.front());
        count += begins ? 1 : 0;
    }
    return count;
}

} // namespace

HelpQuestion::HelpQuestion(std::string_view utf8) {
    const std::string question = searchable(utf8);
    for (std::size_t at = 0; at < question.size();) {
        const bool quoted = question[at] == '"';
        at += quoted ? 1 : 0;
        const std::size_t end = std::min(question.find(quoted ? '"' : ' ', at), question.size());
        if (const std::string word = searchable(question.substr(at, end - at)); !word.empty()) {
            words_.push_back(word);
        }
        at = end + 1;
    }
}

int HelpQuestion::score(const HelpPage& page) const {
    constexpr int titleBonus = 1000;
    const std::string title = searchable(page.title);
    bool allInTitle = true;
    int score = 0;
    for (const std::string& word : words_) {
        const int inTitle = countOf(word, title);
        const int count = inTitle + countOf(word, page.text);
        if (count == 0) {
            return 0;
        }
        allInTitle = allInTitle && inTitle > 0;
        score += count;
    }
    return words_.empty() ? 0 : score + (allInTitle ? titleBonus : 0);
}

} // namespace help
