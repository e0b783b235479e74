#include "web/LetterCode.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include "text/Unicode.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr unsigned letterBits = 16;
constexpr char16_t firstHalf = 0xD800;
constexpr char16_t behindHalves = 0xE000;
constexpr std::uint32_t fewest = 3; ///< of a letter behind another that has bits there

} // namespace

Letters lettersOf(TextView utf8) {
    constexpr char32_t firstOfTwo = 0x10000;
    constexpr char16_t secondHalf = 0xDC00;
    constexpr unsigned halfBits = 10;
    constexpr char32_t half = 0x3FF;
    const TextView plain = utf8.substr(0, text::asciiLength(utf8));
    Letters letters(plain.begin(), plain.end());
    utf8.remove_prefix(plain.size());
    while (!utf8.empty()) {
        const char32_t character = text::takeUtf8(utf8);
        if (character < firstOfTwo) {
            letters += static_cast<char16_t>(character);
        } else {
            letters += static_cast<char16_t>(firstHalf + ((character - firstOfTwo) >> halfBits));
            letters += static_cast<char16_t>(secondHalf + (character & half));
        }
    }
    return letters;
}

Text textOf(std::u16string_view letters) {
    const auto isPlain = [](char16_t letter) { return letter < 0x80; };
    if (std::all_of(letters.begin(), letters.end(), isPlain)) {
        Text text(letters.size(), '\0');
        std::transform(letters.begin(), letters.end(), text.begin(),
                       [](char16_t letter) { return static_cast<char>(letter); });
        return text;
    }
    Text bytes(letters.size() * sizeof(char16_t), '\0');
    std::memcpy(bytes.data(), letters.data(), bytes.size());
    return text::utf8FromUtf16(bytes, std::endian::native == std::endian::big);
}

void LetterCounts::add(std::u16string_view word, std::size_t shared, std::uint32_t times) {
    for (std::size_t i = shared; i <= word.size(); ++i) {
        const char16_t before = i > 0 ? word[i - 1] : LetterCode::end;
        char16_t letter = i < word.size() ? word[i] : LetterCode::end;
        letter = LetterCode::isLetter(letter) || i == word.size() ? letter : LetterCode::other;
        const auto [pair, isNew] = pairs_.numberOf(LetterCode::pairOf(before, letter));
        if (isNew) {
            counts_.push_back(0);
        }
        counts_[pair] += times;
    }
}

/// Whether it may stand in a text that holds a code.
bool LetterCode::isLetter(char16_t letter) {
    return letter >= firstLetter && (letter < firstHalf || letter >= behindHalves);
}

LetterCode::LetterCode(const LetterCounts& counts) {
    constexpr std::uint32_t worthItsOwn = 200;
    std::map<char16_t, Frequencies> behinds;
    for (std::size_t pair = 0; pair < counts.counts_.size(); ++pair) {
        const std::uint64_t letters = counts.pairs_.keys()[pair];
        behinds[static_cast<char16_t>(letters >> letterBits)][static_cast<char16_t>(letters)] +=
            counts.counts_[pair];
    }
    // What is rare comes to that of all.
    const auto moveRare = [](Frequencies& from, std::uint32_t least, Frequencies& to) {
        std::uint32_t others = 0;
        for (auto each = from.begin(); each != from.end();) {
            const bool isRare = each->second < least || each->first == other;
            to[each->first] += isRare ? each->second : 0;
            others += isRare ? each->second : 0;
            each = isRare ? from.erase(each) : std::next(each);
        }
        from[other] = others;
    };
    Frequencies all;
    for (auto& [before, frequencies] : behinds) {
        const auto sum = std::accumulate(
            frequencies.begin(), frequencies.end(), std::uint32_t(0),
            [](std::uint32_t count, const auto& each) { return count + each.second; });
        const bool isOwn = sum >= worthItsOwn && (before == end || isLetter(before));
        moveRare(frequencies, isOwn ? fewest : UINT32_MAX, all);
    }
    all[end] += fewest;
    Frequencies nowhere;
    moveRare(all, fewest, nowhere);
    add(behindOf(0, all));
    for (const auto& [before, frequencies] : behinds) {
        if (frequencies.size() > 1) {
            add(behindOf(before, frequencies));
        }
    }
}

LetterCode::Behind LetterCode::behindOf(char16_t before, const Frequencies& frequencies) {
    std::vector<std::pair<std::uint32_t, char16_t>> sorted;
    for (const auto& [letter, count] : frequencies) {
        sorted.emplace_back(std::max(count, 1U), letter);
    }
    std::sort(sorted.begin(), sorted.end(), std::greater<>());
    Behind behind{before, {}, {}};
    std::vector<std::uint32_t> counts;
    for (const auto& [count, letter] : sorted) {
        behind.letters += letter;
        counts.push_back(count);
    }
    behind.code = PrefixCode::of(counts);
    return behind;
}

void LetterCode::add(Behind behind) {
    numbersBehind_[behind.before] = static_cast<std::uint16_t>(all_.size());
    for (std::size_t i = 0; i < behind.letters.size(); ++i) {
        if (pairs_.numberOf(pairOf(all_.size(), behind.letters[i])).isNew) {
            numbers_.push_back(i);
        }
    }
    all_.push_back(std::move(behind));
}

Text LetterCode::format() const {
    Letters text;
    for (const Behind& behind : all_) {
        if (behind.before != 0) {
            text += u'\t';
            text += behind.before;
        }
        std::u16string_view letters = behind.letters;
        for (const std::size_t count : behind.code.counts()) {
            text += u'\n';
            text += letters.substr(0, count);
            letters.remove_prefix(count);
        }
    }
    return textOf(text);
}

std::optional<LetterCode> LetterCode::parse(TextView text) {
    const Letters letters = lettersOf(text);
    LetterCode code;
    Behind behind;
    std::vector<std::size_t> counts;
    bool isHead = true; // not yet in a line of letters
    const auto finish = [&] {
        behind.code = PrefixCode(std::move(counts));
        code.add(std::move(behind));
    };
    for (const char16_t letter : letters) {
        if (letter == u'\t') {
            finish();
            behind = {};
            counts.clear();
            isHead = true;
        } else if (letter == u'\n') {
            counts.push_back(0);
            isHead = false;
        } else if (isHead) {
            behind.before = letter;
        } else {
            behind.letters += letter;
            ++counts.back();
        }
    }
    finish();
    const auto isKnown = [](const Behind& each) { return each.code.size() >= 2; };
    return std::all_of(code.all_.begin(), code.all_.end(), isKnown) && code.all_.front().before == 0
               ? std::optional(std::move(code))
               : std::nullopt;
}

bool LetterCode::appendLetter(BitText& bits, std::size_t behind, char16_t letter) const {
    if (const auto pair = pairs_.find(pairOf(behind, letter))) {
        all_[behind].code.append(bits, numbers_[*pair]);
        return true;
    }
    return false;
}

void LetterCode::append(BitText& bits, std::u16string_view word, std::size_t shared) const {
    for (std::size_t i = shared; i <= word.size(); ++i) {
        const bool isEnd = i == word.size();
        const char16_t letter = isEnd ? end : isLetter(word[i]) ? word[i] : other;
        const std::size_t behind = numberBehind(word.substr(0, i));
        if (letter != other && appendLetter(bits, behind, letter)) {
            continue;
        }
        if (behind > 0) {
            appendLetter(bits, behind, other);
        }
        if (letter == other || !appendLetter(bits, 0, letter)) {
            appendLetter(bits, 0, other);
            bits.append(word[i], letterBits);
        }
    }
}

void LetterCode::take(BitReader& bits, Letters& word) const {
    const auto takeLetter = [&bits](const Behind& behind) {
        const std::size_t number = behind.code.take(bits);
        return number < behind.letters.size() ? behind.letters[number] : end;
    };
    while (!bits.isBehind()) {
        const std::size_t behind = numberBehind(word);
        char16_t letter = takeLetter(all_[behind]);
        if (letter == other && behind > 0) {
            letter = takeLetter(all_.front());
        }
        if (letter == end) {
            return;
        }
        word += letter == other ? static_cast<char16_t>(bits.takeBits(letterBits)) : letter;
    }
}

} // namespace web
