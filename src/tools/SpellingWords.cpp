#include "tools/SpellingWords.h"

#include <algorithm>
#include <array>

#include "text/CharacterReferences.h"
#include "text/Unicode.h"

namespace tools {

namespace {

constexpr char32_t noBreakSpace = 0xA0;
constexpr char32_t softHyphen = 0xAD;
constexpr char32_t rightQuote = 0x2019;

bool isBlank(char32_t code) {
    return code <= ' ' || code == noBreakSpace;
}

/// `offset` is not 0.
char32_t characterBefore(TextView text, std::size_t offset) {
    std::size_t start = offset - 1;
    while (start > 0 && text::continuesCharacter(text[start])) {
        --start;
    }
    TextView rest = text.substr(start);
    return text::takeUtf8(rest);
}

bool isDigit(char32_t code) {
    return code >= '0' && code <= '9';
}

bool isLetter(char32_t code) {
    const auto within = [code](char32_t first, char32_t last) {
        return code >= first && code <= last;
    };
    return within('A', 'Z') || within('a', 'z') || code == 0xAA || code == 0xB5 || code == 0xBA
           || (within(0xC0, 0x24F) && code != 0xD7 && code != 0xF7) || within(0x370, 0x1FFF);
}

bool isApostrophe(char32_t code) {
    return code == '\'' || code == rightQuote;
}

/// What no word is divided by. A soft hyphen makes it one that is left alone.
bool isOfWord(char32_t code) {
    return isLetter(code) || isDigit(code) || isApostrophe(code) || code == softHyphen;
}

/// Elements whose contents are no prose.
bool holdsCode(TextView name) {
    constexpr std::array<TextView, 7> names = {"code",   "kbd",   "pre", "samp",
                                               "script", "style", "tt"};
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

WordReader::WordReader(TextView text, std::size_t from)
    : text_(text), reader_(text.substr(std::min(from, text.size()))),
      position_(std::min(from, text.size())), proseEnd_(position_) {}

std::optional<SpellingWord> WordReader::next() {
    while (words_.empty()) {
        if (!takeToken()) {
            return {};
        }
        collectWords();
    }
    SpellingWord word = std::move(words_.front());
    words_.pop_front();
    return word;
}

/// Reads on to the next blank or block of mark-up; false at the end.
bool WordReader::takeToken() {
    token_.clear();
    behindTag_ = false;
    while (true) {
        while (position_ < proseEnd_) {
            const Letter letter = takeLetter();
            behindTag_ = false;
            if (!isBlank(letter.code)) {
                token_.push_back(letter);
            } else if (!token_.empty()) {
                return true;
            }
        }
        if (!reader_.next()) {
            return !token_.empty();
        }
        if (!reader_.isText()) {
            passTag();
            if (!behindTag_ && !token_.empty()) {
                return true;
            }
            continue;
        }
        const auto start = static_cast<std::size_t>(reader_.text().data() - text_.data());
        behindTag_ = behindTag_ || start > position_; // a comment may stand within a word
        position_ = start;
        proseEnd_ = start + reader_.text().size();
    }
}

void WordReader::passTag() {
    const Text name = reader_.lowerName();
    behindTag_ = text::isInlineTag(name);
    if (holdsCode(name) && !reader_.closes() && !unclosed_.contains(name)) {
        passCode(name);
    }
}

/// Without an end it goes on as text: the author has yet to write it.
void WordReader::passCode(TextView name) {
    text::HtmlReader ahead = reader_;
    while (ahead.next()) {
        if (ahead.closes(name)) {
            reader_ = ahead;
            return;
        }
    }
    unclosed_.emplace(name);
}

WordReader::Letter WordReader::takeLetter() {
    const text::CharacterReference reference = text::characterReferenceAt(text_, position_);
    const std::size_t start = position_;
    TextView rest = text_.substr(position_);
    const char32_t own = text::takeUtf8(rest);
    const bool isReference = reference.length > 0;
    const char32_t code = isReference ? reference.character : own;
    const std::size_t length =
        isReference ? reference.length : text_.size() - position_ - rest.size();
    position_ += length;
    return {code, start, length, behindTag_};
}

/// Cuts the token into words.
void WordReader::collectWords() {
    const auto codeAt = [this](std::size_t i) { return i < token_.size() ? token_[i].code : 0; };
    const auto isSolid = [](char32_t code) { return isLetter(code) || isDigit(code); };
    const std::size_t start = token_.front().start;
    const bool isWholeToken =
        start == 0 || text_[start - 1] == '>' || isBlank(characterBefore(text_, start));
    for (std::size_t i = 0; i < token_.size(); ++i) {
        const char32_t code = codeAt(i);
        const bool joins = i > 0 && isSolid(codeAt(i - 1)) && isSolid(codeAt(i + 1));
        const bool isPath = code == '/' && i == 0 && isWholeToken;
        const bool isProtocol = code == ':' && codeAt(i + 1) == '/' && codeAt(i + 2) == '/';
        if (code == '@' || code == '\\' || code == '_' || (code == '.' && joins) || isPath
            || isProtocol) {
            return; // an address, or the name of a file or program
        }
    }
    for (std::size_t first = 0; first < token_.size();) {
        std::size_t last = first;
        while (isOfWord(codeAt(last)) && last < token_.size()) {
            ++last;
        }
        addWord(first, last);
        first = std::max(last, first + 1);
    }
}

/// Adds the letters from `first` to before `last`, if they make a word that can be checked.
void WordReader::addWord(std::size_t first, std::size_t last) {
    while (first < last && isApostrophe(token_[first].code)) {
        ++first;
    }
    while (last > first && isApostrophe(token_[last - 1].code)) {
        --last;
    }
    if (first == last) {
        return;
    }
    SpellingWord word;
    for (std::size_t i = first; i < last; ++i) {
        const Letter& letter = token_[i];
        const bool divided = i > first && letter.behindTag;
        if (divided || (!isLetter(letter.code) && !isApostrophe(letter.code))) {
            return;
        }
        text::appendUtf8(word.letters, isApostrophe(letter.code) ? U'\'' : letter.code);
    }
    word.start = token_[first].start;
    word.length = token_[last - 1].start + token_[last - 1].length - word.start;
    words_.push_back(std::move(word));
}

} // namespace tools
