#pragma once

#include <map>
#include <set>

#include "tools/Dictionary.h"
#include "tools/SpellingWords.h"

namespace tools {

/// The words that a person has added, kept in a file of UTF-8 lines.
class PersonalWords {
public:
    /// A file that cannot be read counts as empty.
    explicit PersonalWords(std::filesystem::path file);

    bool knows(const std::string& word) const { return words_.contains(word); }

    /// Adds to what the file holds now: another program may have added words meanwhile. Kept in
    /// memory also where the file cannot be read or written; then it stays as it is.
    std::error_code add(const std::string& word);

private:
    std::error_code read();

    std::filesystem::path file_;
    std::set<std::string> words_;
};

/// Goes through texts from one unknown word to the next, and corrects them. What is to be changed
/// or ignored everywhere holds for all texts.
class Spelling {
public:
    /// Nothing is owned.
    Spelling(Dictionary& dictionary, PersonalWords& personal)
        : dictionary_(&dictionary), personal_(&personal) {}

    /// Goes on with another language, at the word where it is.
    void setDictionary(Dictionary& dictionary);

    void begin(Text text);

    /// Goes to the next unknown word; false when there is none left. What is to be changed
    /// everywhere is changed on the way.
    bool next();

    /// The text with the corrections so far.
    const Text& text() const { return text_; }

    /// Where next() has stopped.
    const SpellingWord& word() const { return word_; }
    std::vector<std::string> suggestions() const { return dictionary_->suggestions(word_.letters); }

    // What to do with the word; next() goes on behind it. Corrections are UTF-8.
    void change(const std::string& correction);
    void changeAll(const std::string& correction);
    void ignoreAll() { ignored_.insert(word_.letters); }
    std::error_code add() { return personal_->add(word_.letters); }

private:
    bool isKnown(const std::string& word) const;

    Dictionary* dictionary_;
    PersonalWords* personal_;
    std::set<std::string> ignored_;
    std::map<std::string, std::string> corrections_;
    Text text_;
    SpellingWord word_;
    std::size_t position_ = 0; ///< where the search goes on
};

/// How often each word that neither knows stands in a text.
std::map<std::string, int> unknownWords(TextView text, Dictionary& dictionary,
                                        const PersonalWords& personal);

} // namespace tools
