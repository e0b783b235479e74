#include "workshop/WordLetters.h"

#include <algorithm>

namespace workshop {

namespace {

constexpr LetterRange letters[] = {
    {'0', '9'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},         {0xAA, 0xAA},
    {0xB5, 0xB5},     {0xBA, 0xBA},     {0xC0, 0xD6},     {0xD8, 0xF6},       {0xF8, 0x2C1},
    {0x300, 0x373},   {0x376, 0x37D},   {0x386, 0x386},   {0x388, 0x481},     {0x483, 0x52F},
    {0x531, 0x556},   {0x561, 0x587},   {0x591, 0x5BD},   {0x5BF, 0x5BF},     {0x5C1, 0x5F2},
    {0x610, 0x61A},   {0x620, 0x669},   {0x66E, 0x6D3},   {0x6D5, 0x6FF},     {0x0900, 0x0DFF},
    {0x0E01, 0x0E3A}, {0x0E40, 0x0E4E}, {0x0E50, 0x0E59}, {0x0E81, 0x0FBC},   {0x1000, 0x13F4},
    {0x1780, 0x17D3}, {0x1E00, 0x1FBC}, {0x1FC2, 0x1FFC}, {0x3041, 0x318E},   {0x3400, 0x4DBF},
    {0x4E00, 0xABFF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0x20000, 0x3FFFF},
};

/// Thai to Burmese, Khmer, Chinese, Japanese and Korean.
constexpr LetterRange joined[] = {
    {0x0E01, 0x0E3A}, {0x0E40, 0x0E4E}, {0x0E81, 0x0EFF},   {0x1000, 0x109F},
    {0x1780, 0x17D3}, {0x3041, 0x318E}, {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},
    {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0x20000, 0x3FFFF},
};

bool holds(std::span<const LetterRange> ranges, char32_t character) {
    const auto behind =
        std::upper_bound(ranges.begin(), ranges.end(), character,
                         [](char32_t c, const LetterRange& range) { return c < range.first; });
    return behind != ranges.begin() && character <= (behind - 1)->last;
}

} // namespace

std::span<const LetterRange> wordLetters() {
    return letters;
}

std::span<const LetterRange> joinedScripts() {
    return joined;
}

bool isWordLetter(char32_t character) {
    return holds(letters, character);
}

bool isOfJoinedScript(char32_t character) {
    return holds(joined, character);
}

bool joinsLetters(char32_t character) {
    constexpr char32_t curlyApostrophe = 0x2019;
    constexpr char32_t softHyphen = 0xAD;
    return character == '\'' || character == curlyApostrophe || character == softHyphen;
}

} // namespace workshop
