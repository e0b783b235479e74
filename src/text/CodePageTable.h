#pragma once

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "text/Text.h"

namespace text {

/// Which bytes are which characters in a code page: asked of the system, and the same on every one.
class CodePageTable {
public:
    /// Made when it is first asked for. A code page that the system lacks is taken for the western
    /// one.
    static const CodePageTable& of(unsigned number);

    /// How a character beyond ASCII is written; null for one that the code page lacks.
    const std::string* bytesOf(char32_t character) const {
        const auto known = bytes_.find(character);
        return known == bytes_.end() ? nullptr : &known->second;
    }

    /// Whether each byte is a character, whatever stands before it.
    bool isOfSingleBytes() const { return pairs_.empty() && !hasMarks_; }

    /// Bytes of such a code page.
    Text decodedSingleBytes(TextView bytes) const;

    /// Takes the first character from bytes that begin beyond ASCII and appends it to the text, or
    /// makes one of it and the text's last one. A byte with which no character begins is replaced
    /// alone.
    void appendDecoded(Text& text, TextView& bytes) const;

private:
    static constexpr std::size_t byteCount = 256;
    static constexpr unsigned firstHigh = 0x80;

    static std::size_t pairIndex(unsigned char lead, unsigned char trail) {
        return (lead - firstHigh) * byteCount + trail;
    }

    void fill(unsigned number);
    void fillLetters();
    char* writeLetters(char* out, TextView bytes) const;
    void add(std::string_view encoded, char32_t character, unsigned number);
    void addWestern();
    void addByte(unsigned char byte, unsigned number);
    void addPairs(unsigned char lead, unsigned number);
    void addMarkedLetters();
    void correct(unsigned number);
    bool joinMark(Text& text, char32_t mark) const;

    /// A character in UTF-8; none of a single byte takes more than three.
    struct Letter {
        std::array<char, 4> utf8{};
        std::size_t size = 0;
    };

    std::array<Letter, byteCount> letters_{};
    std::array<char32_t, byteCount> characters_{};    ///< of each byte that is one alone
    std::unordered_map<char32_t, std::string> bytes_; ///< beyond ASCII
    std::vector<char32_t> pairs_; ///< characters of two bytes, 0 for none; empty where none has two
    bool hasMarks_ = false;       ///< that make letters of those before them
};

} // namespace text
