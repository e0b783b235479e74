#pragma once

#include <span>

/// What words of natural language are made of, in all scripts.
namespace workshop {

struct LetterRange {
    char32_t first, last;
};

/// Letters and digits, in the order of their numbers.
std::span<const LetterRange> wordLetters();

/// Those of scripts that write words without blanks between them; part of the others.
std::span<const LetterRange> joinedScripts();

bool isWordLetter(char32_t character);
bool isOfJoinedScript(char32_t character);

/// Whether a character between two letters makes one word of them: an apostrophe or a hyphen that
/// is not seen.
bool joinsLetters(char32_t character);

} // namespace workshop
