#include "web/TextPacker.h"

#include <numeric>

#include "web/FrontCoder.h"
#include "web/PartScanner.h"
#include "web/SearchTexts.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr unsigned halfOfPair = 32;

std::uint64_t pairOf(std::size_t one, std::size_t other) {
    return std::uint64_t(one) << halfOfPair | other;
}

} // namespace

TextPacker::TextPacker(TextView table, const LetterCode& letters) : letters_(letters) {
    struct Counts {
        std::size_t spelled;
        std::size_t joined;
    };
    BitReader bits(table);
    std::vector<Counts> counts;
    std::vector<std::size_t> sums;
    for (std::size_t lengths = bits.takeGamma(); lengths > 0 && !bits.isBehind(); --lengths) {
        const std::size_t spelled = bits.takeGamma() - 1;
        const std::size_t joined = bits.takeGamma() - 1;
        counts.push_back({spelled, joined});
        sums.push_back(spelled + joined);
    }
    constexpr std::size_t bitsOfByte = 8; // no part has less than a bit
    const std::size_t parts = std::accumulate(sums.begin(), sums.end(), std::size_t(0));
    if (bits.isBehind() || parts > table.size() * bitsOfByte) {
        return;
    }
    code_ = PrefixCode(std::move(sums));
    std::size_t number = 0;
    for (const auto [spelled, joined] : counts) {
        FrontDecoder decoder;
        for (std::size_t i = 0; i < spelled; ++i) {
            if (spelled_.numberOf(kept_.emplace_back(decoder.take(bits, letters))).isNew) {
                numberOfSpelled_.push_back(number + i);
            }
        }
        number += spelled + joined;
    }
    number = 0;
    for (const auto [spelled, joined] : counts) {
        number += spelled;
        for (std::size_t i = 0; i < joined; ++i, ++number) {
            const std::size_t one = code_.take(bits);
            if (pairs_.numberOf(pairOf(one, code_.take(bits))).isNew) {
                numberOfPair_.push_back(number);
            }
        }
    }
    literal_ = markOf(SearchTexts::literal);
    capital_ = markOf(SearchTexts::capital);
    end_ = markOf(SearchTexts::end);
}

std::size_t TextPacker::markOf(TextView mark) const {
    return numberOfSpelled_[spelled_.find(mark).value_or(0)];
}

TextPacker::Use TextPacker::useOf(TextView part) const {
    const bool isMark = SearchTexts::isMark(part);
    if (const auto found = isMark ? std::nullopt : spelled_.find(part)) {
        return {numberOfSpelled_[*found], false, part};
    }
    if (isCapitalised(part)) {
        Text small(part);
        small.front() = static_cast<char>(small.front() - 'A' + 'a');
        if (const auto found = spelled_.find(small)) {
            return {numberOfSpelled_[*found], true, part};
        }
    }
    return {literal_, false, part};
}

void TextPacker::joinPairs(std::vector<Use>& uses) const {
    const auto isPlain = [this](const Use& use) {
        return use.number != literal_ && !use.isCapital;
    };
    std::size_t size = 0;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        Use use = uses[i];
        if (i + 1 < uses.size() && isPlain(use) && isPlain(uses[i + 1])) {
            if (const auto pair = pairs_.find(pairOf(use.number, uses[i + 1].number))) {
                use.number = numberOfPair_[*pair];
                ++i;
            }
        }
        uses[size++] = use;
    }
    uses.resize(size);
}

void TextPacker::pack(TextView text, BitText& bits) const {
    std::vector<Use> uses;
    PartScanner scanner(text);
    while (scanner.next()) {
        uses.push_back(useOf(scanner.part()));
    }
    for (int round = 0; round < SearchTexts::rounds; ++round) {
        joinPairs(uses);
    }
    for (const Use& use : uses) {
        if (use.isCapital) {
            code_.append(bits, capital_);
        }
        code_.append(bits, use.number);
        if (use.number == literal_) {
            letters_.append(bits, lettersOf(use.text), 0);
        }
    }
    code_.append(bits, end_);
}

void TextPacker::copy(BitReader& from, BitText& bits) const {
    for (std::size_t number = literal_; number != end_ && !from.isBehind();) {
        number = code_.take(from);
        if (number >= code_.size()) {
            return;
        }
        code_.append(bits, number);
        if (number == literal_) {
            Letters word;
            letters_.take(from, word);
            letters_.append(bits, word, 0);
        }
    }
}

} // namespace web
