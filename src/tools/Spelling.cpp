#include "tools/Spelling.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/TextLines.h"

namespace tools {

namespace {

/// The apostrophe as the author has written it: a sign or a reference. The last one counts.
Text apostropheOf(TextView word) {
    for (const TextView form : {"\u2019", "&rsquo;", "&#8217;", "&#146;", "&#39;", "&apos;"}) {
        if (word.find(form) != TextView::npos) {
            return Text(form);
        }
    }
    return "'";
}

/// A correction as it goes into the text.
Text correctedWord(TextView written, const std::string& correction) {
    const Text apostrophe = apostropheOf(written);
    Text word;
    for (const char character : correction) {
        word += character == '\'' ? apostrophe : Text(1, character);
    }
    return word;
}

} // namespace

PersonalWords::PersonalWords(std::filesystem::path file) : file_(std::move(file)) {
    static_cast<void>(read());
}

/// A file that is not there holds nothing.
std::error_code PersonalWords::read() {
    std::string bytes;
    const std::error_code error = platform::readFile(file_, bytes);
    text::LineReader lines(bytes);
    for (TextView line; lines.next(line);) {
        words_.emplace(line);
    }
    words_.erase("");
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

std::error_code PersonalWords::add(const std::string& word) {
    words_.insert(word);
    if (const std::error_code error = read()) {
        return error;
    }
    std::string bytes;
    for (const std::string& known : words_) {
        bytes += known + '\n';
    }
    return platform::replaceFile(file_, bytes);
}

void Spelling::setDictionary(Dictionary& dictionary) {
    dictionary_ = &dictionary;
    position_ = word_.start;
}

void Spelling::begin(Text text) {
    text_ = std::move(text);
    position_ = 0;
    word_ = {};
}

bool Spelling::isKnown(const std::string& word) const {
    return ignored_.contains(word) || personal_->knows(word) || dictionary_->knows(word);
}

bool Spelling::next() {
    WordReader words(text_, position_);
    Text corrected; // what lies before `copied` in the text, where something was changed
    std::size_t copied = 0;
    std::optional<SpellingWord> found;
    while ((found = words.next())) {
        if (const auto correction = corrections_.find(found->letters);
            correction != corrections_.end()) {
            const TextView text = text_;
            corrected += text.substr(copied, found->start - copied);
            corrected +=
                correctedWord(text.substr(found->start, found->length), correction->second);
            copied = found->start + found->length;
        } else if (!isKnown(found->letters)) {
            break;
        }
    }
    const std::size_t before = corrected.size();
    if (copied > 0) {
        corrected += TextView(text_).substr(copied);
        text_ = std::move(corrected);
    }
    if (!found) {
        position_ = text_.size();
        return false;
    }
    word_ = std::move(*found);
    word_.start = word_.start - copied + before;
    position_ = word_.start + word_.length;
    return true;
}

void Spelling::change(const std::string& correction) {
    if (correction == word_.letters) {
        return; // references and apostrophes stay as they are
    }
    const Text word = correctedWord(TextView(text_).substr(word_.start, word_.length), correction);
    text_.replace(word_.start, word_.length, word);
    word_.length = word.size();
    position_ = word_.start + word.size();
}

void Spelling::changeAll(const std::string& correction) {
    if (correction == word_.letters) {
        ignoreAll();
        return;
    }
    corrections_[word_.letters] = correction;
    change(correction);
}

std::map<std::string, int> unknownWords(TextView text, Dictionary& dictionary,
                                        const PersonalWords& personal) {
    std::map<std::string, int> unknown;
    WordReader words(text);
    while (const auto word = words.next()) {
        if (!dictionary.knows(word->letters) && !personal.knows(word->letters)) {
            ++unknown[word->letters];
        }
    }
    return unknown;
}

} // namespace tools
