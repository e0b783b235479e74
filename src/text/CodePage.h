#pragma once

#include "text/Text.h"
#include "text/Unicode.h"

/// The border between texts and the bytes of files.
namespace text {

/// What stands in a file: a text in some encoding, or no text at all. A type of its own, so that
/// bytes and texts cannot take each other's place unseen.
struct Bytes {
    Bytes() = default;
    explicit Bytes(std::string bytes) : value(std::move(bytes)) {}

    std::string value;
};

class CodePageTable;

/// What becomes of characters that a code page lacks.
enum class Missing {
    reference,   ///< decimal ("&#937;"), for HTML, where nothing needs to be lost
    questionMark ///< where a reference would mean nothing
};

/// A code page of Windows, by its number.
class CodePage {
public:
    static constexpr unsigned western = 1252;

    /// One that the system lacks is taken for the western one.
    explicit CodePage(unsigned number = western);

    unsigned number() const { return number_; }

    bool has(char32_t character) const;
    bool hasAll(TextView text) const;

    /// Every byte of the western code page has a character, and comes back from there: the five
    /// that it leaves open are the control characters of the same code, as on Windows. In others,
    /// bytes without a character become the replacement character.
    Text decoded(TextView bytes) const;

    Bytes encoded(TextView text, Missing missing) const;
    void appendEncoded(std::string& bytes, TextView text, Missing missing) const;

    /// How many bytes encoded() gives, with references.
    std::size_t encodedSize(TextView text) const;

    // HTML that the code page cannot write as it stands holds decimal references instead. These are
    // each other's opposites for whatever bytes and for all texts that decodedHtml() makes.

    /// With letters in place of the decimal references that encoded() would write for them. Other
    /// references stay, as do those of what cannot be seen: blanks and control characters.
    Text decodedHtml(TextView bytes) const;

    /// The same for what is a text already.
    Text withLetters(TextView html) const;

    bool operator==(const CodePage& other) const { return number_ == other.number_; }

private:
    /// A western letter whose code is its number: most of those that there are, known without a
    /// look into the table.
    bool isLatin(char32_t character) const {
        return number_ == western && character >= 0xA0 && character <= 0xFF;
    }

    const CodePageTable* table_;
    unsigned number_;
};

} // namespace text
