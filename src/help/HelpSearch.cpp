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

bool isBetweenWords(char before, char behind) {
    return !isOfWord(before) || !isOfWord(behind) || needsNoBlank(behind);
}

/// How often a term stands in a text, up to a limit.
int countOf(const SearchTerm& term, std::string_view text) {
    int count = 0;
    forEachPlace(term, text, [&count](std::size_t) { return ++count < enoughPlaces; });
    return count;
}

int scoreOf(const HelpQuestion::Terms& terms, const std::string& title, const HelpPage& page) {
    bool allInTitle = true;
    int score = 0;
    for (const SearchTerm& term : terms) {
        const int inTitle = countOf(term, title);
        const int count = inTitle + countOf(term, page.text);
        if ((count == 0) != term.isExcluded) {
            return 0;
        }
        allInTitle = allInTitle && (inTitle > 0 || term.isExcluded);
        score += count;
    }
    return score + (allInTitle ? titleBonus : 0);
}

/// Takes a question apart.
class TermReader {
public:
    explicit TermReader(std::string_view question) : rest_(question) {}

    /// The next term or operator as it is written; false at the end.
    bool next() {
        constexpr std::string_view blanks = " \t\r\n";
        rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
        if (rest_.empty()) {
            return false;
        }
        isQuoted = rest_.front() == '"';
        rest_.remove_prefix(isQuoted ? 1 : 0);
        text = rest_.substr(0, isQuoted ? rest_.find('"') : rest_.find_first_of(" \t\r\n\""));
        rest_.remove_prefix(std::min(text.size() + (isQuoted ? 1 : 0), rest_.size()));
        return true;
    }

    std::string_view text;
    bool isQuoted = false;

private:
    std::string_view rest_;
};

} // namespace

void forEachPlace(const SearchTerm& term, std::string_view text,
                  const std::function<bool(std::size_t)>& use) {
    const std::string_view word = term.text;
    std::size_t next = 0;
    for (std::size_t at = 0; (at = text.find(word, next)) != std::string_view::npos;) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || isBetweenWords(text[at - 1], word.front());
        const bool ends =
            !term.isWhole || end == text.size() || isBetweenWords(word.back(), text[end]);
        if (begins && ends && !use(at)) {
            return;
        }
        next = begins && ends ? end : at + 1; // a place may begin in what is none
    }
}

HelpQuestion::HelpQuestion(std::string_view utf8) {
    Terms terms;
    bool excludes = false;
    const auto endAlternative = [&] {
        const bool asks = std::any_of(terms.begin(), terms.end(),
                                      [](const SearchTerm& term) { return !term.isExcluded; });
        if (asks) {
            alternatives_.push_back(std::move(terms));
        }
        terms.clear();
    };
    for (TermReader reader(utf8); reader.next();) {
        if (!reader.isQuoted && (reader.text == "AND" || reader.text == "NOT")) {
            excludes = excludes || reader.text == "NOT";
        } else if (!reader.isQuoted && reader.text == "OR") {
            endAlternative();
        } else {
            std::string text = searchable(reader.text);
            while (!reader.isQuoted && text.ends_with('*')) { // the beginning is meant anyway
                text.pop_back();
            }
            if (text.starts_with(' ')) {
                text.erase(0, 1);
            }
            if (!text.empty()) {
                terms.push_back({std::move(text), reader.isQuoted, excludes});
            }
            excludes = false;
        }
    }
    endAlternative();
    for (const Terms& each : alternatives_) {
        for (const SearchTerm& term : each) {
            if (!term.isExcluded) {
                words_.push_back(term.text);
            }
        }
    }
}

int HelpQuestion::score(const HelpPage& page) const {
    const std::string title = searchable(page.title);
    int best = 0;
    for (const Terms& terms : alternatives_) {
        best = std::max(best, scoreOf(terms, title, page));
    }
    return best;
}

} // namespace help
