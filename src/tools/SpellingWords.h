#pragma once

#include <deque>
#include <optional>
#include <set>
#include <string>

#include "text/HtmlReader.h"

namespace tools {

using text::Text;
using text::TextView;

/// A word of a text as a reader sees it.
struct SpellingWord {
    std::size_t start = 0;  ///< in the text
    std::size_t length = 0; ///< there, with the references in it
    std::string letters;    ///< in UTF-8, references resolved, every apostrophe a plain one
};

/// Takes the words that can be misspelt out of a text with mark-up. Left out are tags, comments,
/// code, addresses and names of files and programs, words with digits, and words that a tag
/// divides. A reference is a letter like any other.
class WordReader {
public:
    /// Begins at an offset outside of mark-up. The text must outlive the reader.
    explicit WordReader(TextView text, std::size_t from = 0);

    std::optional<SpellingWord> next();

private:
    struct Letter {
        char32_t code;
        std::size_t start;
        std::size_t length;
        bool behindTag; ///< a tag stands right in front of it
    };

    bool takeToken();
    void passTag();
    void passCode(TextView name);
    Letter takeLetter();
    void collectWords();
    void addWord(std::size_t first, std::size_t last);

    TextView text_;
    text::HtmlReader reader_;  ///< behind the prose that is being read
    std::size_t position_;     ///< in the text
    std::size_t proseEnd_;     ///< likewise: where the reader goes on
    std::deque<Letter> token_; ///< what stands between two blanks
    std::deque<SpellingWord> words_;
    bool behindTag_ = false;

    std::set<Text> unclosed_; ///< elements of code; their end tags are not looked for again
};

} // namespace tools
