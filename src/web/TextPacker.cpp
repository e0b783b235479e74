#include "web/TextPacker.h"

#include "web/FrontCoder.h"
#include "web/PartScanner.h"
#include "web/SearchTexts.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr int tiers = 3;
constexpr unsigned halfOfPair = 32;

std::uint64_t pairOf(std::size_t one, std::size_t other) {
    return std::uint64_t(one) << halfOfPair | other;
}

} // namespace

TextPacker::TextPacker(TextView table, SymbolSplit split) : split_(split) {
    SymbolReader reader(table, split);
    std::size_t number = SearchTexts::firstPart;
    for (int tier = 0; tier < tiers; ++tier) {
        FrontDecoder decoder;
        for (std::size_t count = reader.takeNumber(); count > 0 && !reader.atEnd(); --count) {
            if (spelled_.numberOf(kept_.emplace_back(decoder.take(reader))).isNew) {
                numberOfSpelled_.push_back(number);
            }
            ++number;
        }
        for (std::size_t count = reader.takeNumber(); count > 0 && !reader.atEnd(); --count) {
            const std::size_t one = reader.takeNumber();
            if (pairs_.numberOf(pairOf(one, reader.takeNumber())).isNew) {
                numberOfPair_.push_back(number);
            }
            ++number;
        }
    }
}

TextPacker::Use TextPacker::useOf(TextView part) const {
    if (const auto found = spelled_.find(part)) {
        return {numberOfSpelled_[*found], false, part};
    }
    if (isCapitalised(part)) {
        Text small(part);
        small.front() = static_cast<char>(small.front() - 'A' + 'a');
        if (const auto found = spelled_.find(small)) {
            return {numberOfSpelled_[*found], true, part};
        }
    }
    return {SearchTexts::literal, false, part};
}

void TextPacker::joinPairs(std::vector<Use>& uses) const {
    const auto isPlain = [](const Use& use) {
        return use.number != SearchTexts::literal && !use.isCapital;
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

Text TextPacker::packed(TextView text) const {
    std::vector<Use> uses;
    PartScanner scanner(text);
    while (scanner.next()) {
        uses.push_back(useOf(scanner.part()));
    }
    for (int round = 0; round < SearchTexts::rounds; ++round) {
        joinPairs(uses);
    }
    Text packed;
    for (const Use& use : uses) {
        if (use.isCapital) {
            appendNumber(packed, SearchTexts::capital, split_);
        }
        appendNumber(packed, use.number, split_);
        if (use.number == SearchTexts::literal) {
            appendNumber(packed, scriptLength(use.text), split_);
            packed += use.text;
        }
    }
    return packed;
}

} // namespace web
