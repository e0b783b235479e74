#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "web/NumberTable.h"
#include "web/PrefixCode.h"

namespace web {

using Letters = std::u16string; ///< as scripts count them
Letters lettersOf(text::TextView utf8);
text::Text textOf(std::u16string_view letters);

/// How often letters follow others.
class LetterCounts {
public:
    /// A word whose first letters are not written.
    void add(std::u16string_view word, std::size_t shared, std::uint32_t times = 1);

private:
    friend class LetterCode;

    NumberTable<std::uint64_t> pairs_;
    std::vector<std::uint32_t> counts_; ///< by pairs
};

/// Letters as bits, by the letter before: in the words of a language, few letters follow each
/// other. Those that are rare there have the bits of all words, and those that are rare everywhere
/// stand as they are.
class LetterCode {
public:
    LetterCode() = default;
    explicit LetterCode(const LetterCounts& counts);

    /// What format() returned, or nothing.
    static std::optional<LetterCode> parse(text::TextView text);

    /// For each letter, with a tab between, it and those behind it: those of one bit, those of two,
    /// each in a line of their own. First comes what counts behind all others.
    text::Text format() const;

    /// The letters of a word behind the first, and its end.
    void append(BitText& bits, std::u16string_view word, std::size_t shared) const;

    /// Takes letters behind those of a word, until its end.
    void take(BitReader& bits, Letters& word) const;

private:
    friend class LetterCounts;

    // Marks among the letters, none of which is below the first.
    static constexpr char16_t other = 0; ///< the letter is not here
    static constexpr char16_t end = 1;
    static constexpr char16_t firstLetter = ' ';

    struct Behind {
        char16_t before = 0; ///< 0 for all
        Letters letters;
        PrefixCode code;
    };

    using Frequencies = std::map<char16_t, std::uint32_t>;

    static Behind behindOf(char16_t before, const Frequencies& frequencies);
    static std::uint64_t pairOf(std::size_t behind, char16_t letter) {
        constexpr unsigned letterBits = 16;
        return std::uint64_t(behind) << letterBits | letter;
    }
    static bool isLetter(char16_t letter);
    void add(Behind behind);
    std::size_t numberBehind(std::u16string_view word) const {
        return numbersBehind_[word.empty() ? end : word.back()];
    }
    bool appendLetter(BitText& bits, std::size_t behind, char16_t letter) const;

    std::vector<Behind> all_;
    std::vector<std::uint16_t> numbersBehind_ = std::vector<std::uint16_t>(0x10000); ///< by letter
    NumberTable<std::uint64_t> pairs_;
    std::vector<std::size_t> numbers_; ///< of letters in their codes, by pairs
};

} // namespace web
