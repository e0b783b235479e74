#include "web/SearchTexts.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "text/Unicode.h"
#include "web/FrontCoder.h"
#include "web/PartScanner.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr std::size_t mostParts = 17000; ///< in the table; all splits have numbers for them
constexpr std::uint32_t often = 10;      ///< that a pair of parts becomes one

/// Whether a part is worth a number: it has to stand in the table, too.
bool isWorthNumber(TextView part, std::size_t count) {
    constexpr std::size_t lengths = 2;
    constexpr std::size_t usualNumber = 2;
    const std::size_t inTable = part.size() * 2 / 3 + lengths;
    return count * (part.size() + lengths) > inTable + count * usualNumber;
}

} // namespace

bool isCapitalised(TextView part) {
    return part.size() > 1 && part.front() >= 'A' && part.front() <= 'Z';
}

SearchTexts::SearchTexts(const std::vector<Text>& texts, SearchIndex& index,
                         const std::function<void(std::size_t)>& beforePage) {
    uses_.resize(texts.size());
    std::vector<std::uint32_t> counts;
    for (std::size_t page = 0; page < texts.size(); ++page) {
        beforePage(page);
        read(texts[page], page, index, counts);
    }
    for (std::size_t part = 0; part < counts.size(); ++part) {
        parts_[part].count = counts[part];
    }
    for (int round = 0; round < rounds; ++round) {
        joinPairs();
    }
    foldCapitals();
    giveNumbers();
}

std::uint32_t SearchTexts::partOf(TextView text) {
    const auto [part, isNew] = partOfText_.numberOf(text);
    if (isNew) {
        parts_.emplace_back().text = text;
    }
    return part;
}

/// The counts are beside the parts, of which a processor's cache does not hold all.
void SearchTexts::read(TextView text, std::size_t page, SearchIndex& index,
                       std::vector<std::uint32_t>& counts) {
    PartJoiner joiner;
    const auto addWord = [&](TextView word, bool isRun, std::uint32_t number) {
        index.addWord(page, word, isRun, number);
    };
    PartScanner scanner(text);
    while (scanner.next()) {
        const std::size_t known = parts_.size();
        const std::uint32_t part = partOf(scanner.part());
        if (part == known) {
            parts_[part].beginsWord = parts_[part].endsWord = scanner.isWord();
            counts.push_back(0);
        }
        ++counts[part];
        uses_[page].push_back({part, false});
        joiner.take(scanner.part(), scanner.kind(), part, addWord);
    }
    joiner.take({}, LetterKind::none, 0, addWord);
}

/// How often a pair has to be there to be one of the most frequent.
std::uint32_t SearchTexts::leastOf(std::vector<std::uint32_t> counts) {
    constexpr std::size_t most = 1000;
    if (counts.size() < most) {
        return often;
    }
    const auto last = counts.begin() + most - 1;
    std::nth_element(counts.begin(), last, counts.end(), std::greater<>());
    return std::max(often, *last);
}

/// Calls a function with each pair of parts that are both frequent.
template <typename Function>
void SearchTexts::forPairs(const Function& function) const {
    std::vector<unsigned char> frequent(parts_.size());
    std::transform(parts_.begin(), parts_.end(), frequent.begin(),
                   [](const Part& part) { return part.count >= often ? 1 : 0; });
    for (const std::vector<Use>& uses : uses_) {
        bool isFrequent = !uses.empty() && frequent[uses.front().part] != 0;
        for (std::size_t i = 1; i < uses.size(); ++i) {
            const bool wasFrequent = isFrequent;
            isFrequent = frequent[uses[i].part] != 0;
            if (wasFrequent && isFrequent) {
                function(pairOf(uses[i - 1], uses[i]));
            }
        }
    }
}

/// The pairs that are worth a part of their own, and those parts. Most pairs are rare, and shall
/// not fill a table that no cache of a processor holds: a rough count, of pairs that share a place,
/// leaves them out.
void SearchTexts::findPairs(Pairs& frequent, std::vector<std::uint32_t>& joined) {
    constexpr std::size_t places = std::size_t(1) << 18U;
    std::vector<unsigned char> rough(places);
    forPairs([&rough](std::uint64_t pair) {
        unsigned char& count = rough[hashOf(pair) % places];
        count = static_cast<unsigned char>(count + (count < often ? 1 : 0));
    });
    Pairs pairs;
    std::vector<std::uint32_t> counts;
    forPairs([&](std::uint64_t parts) {
        if (rough[hashOf(parts) % places] >= often) {
            const auto [pair, isNew] = pairs.numberOf(parts);
            if (isNew) {
                counts.push_back(0);
            }
            ++counts[pair];
        }
    });
    const std::uint32_t least = leastOf(counts);
    for (std::size_t pair = 0; pair < counts.size(); ++pair) {
        if (counts[pair] >= least) {
            const std::uint64_t parts = pairs.keys()[pair];
            frequent.numberOf(parts);
            joined.push_back(joinedPart(static_cast<std::uint32_t>(parts >> halfOfPair),
                                        static_cast<std::uint32_t>(parts)));
        }
    }
}

/// Makes one part of two that often follow each other.
void SearchTexts::joinPairs() {
    Pairs frequent;
    std::vector<std::uint32_t> joined;
    findPairs(frequent, joined);
    for (std::vector<Use>& uses : uses_) {
        std::size_t size = 0;
        for (std::size_t i = 0; i < uses.size(); ++i) {
            Use use = uses[i];
            const auto pair =
                i + 1 < uses.size() ? frequent.find(pairOf(use, uses[i + 1])) : std::nullopt;
            if (pair) {
                --parts_[use.part].count;
                --parts_[uses[++i].part].count;
                use.part = joined[*pair];
                ++parts_[use.part].count;
            }
            uses[size++] = use;
        }
        uses.resize(size);
    }
}

std::uint32_t SearchTexts::joinedPart(std::uint32_t one, std::uint32_t other) {
    const bool hasGap = parts_[one].endsWord && parts_[other].beginsWord;
    joined_.push_back(Text(parts_[one].text) + (hasGap ? " " : "") + Text(parts_[other].text));
    const std::size_t known = parts_.size();
    const std::uint32_t part = partOf(joined_.back());
    if (part == known) {
        parts_[part].beginsWord = parts_[one].beginsWord;
        parts_[part].endsWord = parts_[other].endsWord;
        parts_[part].isJoined = true;
        parts_[part].one = one;
        parts_[part].other = other;
    }
    return part;
}

/// Words that are seldom written with a capital have no number of their own for that.
void SearchTexts::foldCapitals() {
    constexpr std::size_t oftenEnough = 16;
    std::vector<std::uint32_t> small(parts_.size());
    std::iota(small.begin(), small.end(), 0U);
    Text word;
    for (std::uint32_t i = 0; i < small.size(); ++i) {
        if (!isCapitalised(parts_[i].text) || parts_[i].count >= oftenEnough) {
            continue;
        }
        word = parts_[i].text;
        word.front() = static_cast<char>(word.front() - 'A' + 'a');
        if (const auto found = partOfText_.find(word)) {
            small[i] = *found;
            parts_[*found].count += std::exchange(parts_[i].count, 0);
        }
    }
    for (std::vector<Use>& uses : uses_) {
        for (Use& use : uses) {
            use.isCapital = small[use.part] != use.part;
            use.part = small[use.part];
        }
    }
}

void SearchTexts::giveNumbers() {
    for (std::uint32_t i = 0; i < parts_.size(); ++i) {
        if (isWorthNumber(parts_[i].text, parts_[i].count)) {
            numbered_.push_back(i);
        }
    }
    std::sort(numbered_.begin(), numbered_.end(), [this](std::uint32_t a, std::uint32_t b) {
        return parts_[a].count != parts_[b].count ? parts_[a].count > parts_[b].count
                                                  : isBefore(parts_[a].text, parts_[b].text);
    });
    numbered_.resize(std::min(numbered_.size(), mostParts));
    chooseSplit();
    for (const std::uint32_t part : numbered_) {
        parts_[part].number = firstPart; // known to have one
    }
    // Within those of the same length, the order of the alphabet makes the table short.
    const auto before = [this](std::uint32_t a, std::uint32_t b) {
        const bool isFirst = isSpelled(a);
        return isFirst != isSpelled(b) ? isFirst : isBefore(parts_[a].text, parts_[b].text);
    };
    std::size_t start = 0;
    for (const std::size_t number : {split_.belowTwo(), split_.belowThree(), split_.end()}) {
        const std::size_t end = tierEnd(number);
        std::sort(numbered_.begin() + static_cast<std::ptrdiff_t>(start),
                  numbered_.begin() + static_cast<std::ptrdiff_t>(end), before);
        start = end;
    }
    for (std::size_t i = 0; i < numbered_.size(); ++i) {
        Part& part = parts_[numbered_[i]];
        part.number = firstPart + i;
        appendNumber(part.symbols, part.number, split_);
    }
}

/// Where in their order the parts end that have numbers below one.
std::size_t SearchTexts::tierEnd(std::size_t number) const {
    return std::min(number - firstPart, numbered_.size());
}

bool SearchTexts::isSpelled(std::uint32_t part) const {
    const Part& known = parts_[part];
    return !known.isJoined || parts_[known.one].number == 0 || parts_[known.other].number == 0;
}

/// The one with which the texts are shortest. As few symbols as possible are left for numbers of
/// three.
void SearchTexts::chooseSplit() {
    constexpr std::size_t fewest = 20;
    const std::size_t threes = numbered_.size() < mostParts / 2 ? 1 : 2;
    const std::size_t most = symbolCount - threes - 1;
    std::vector<std::size_t> usesBefore = {0}; // of all parts before one
    for (const std::uint32_t part : numbered_) {
        usesBefore.push_back(usesBefore.back() + parts_[part].count);
    }
    const auto usesBelow = [&](std::size_t number) {
        return usesBefore[std::min(number - firstPart, numbered_.size())];
    };
    std::size_t mostSaved = 0;
    for (std::size_t alone = fewest; alone <= most; ++alone) {
        const SymbolSplit split{alone, symbolCount - threes - alone};
        const std::size_t saved = usesBelow(split.belowTwo()) + usesBelow(split.belowThree());
        if (saved > mostSaved) {
            mostSaved = saved;
            split_ = split;
        }
    }
}

Text SearchTexts::table() const {
    Text table;
    std::size_t start = 0;
    for (const std::size_t number : {split_.belowTwo(), split_.belowThree(), split_.end()}) {
        const auto first = numbered_.begin() + static_cast<std::ptrdiff_t>(start);
        const auto last = numbered_.begin() + static_cast<std::ptrdiff_t>(tierEnd(number));
        const auto joined = std::partition_point(
            first, last, [this](std::uint32_t part) { return isSpelled(part); });
        FrontCoder coder(split_);
        appendNumber(table, static_cast<std::size_t>(joined - first), split_);
        for (auto part = first; part != joined; ++part) {
            coder.append(table, parts_[*part].text);
        }
        appendNumber(table, static_cast<std::size_t>(last - joined), split_);
        for (auto part = joined; part != last; ++part) {
            appendNumber(table, parts_[parts_[*part].one].number, split_);
            appendNumber(table, parts_[parts_[*part].other].number, split_);
        }
        start = tierEnd(number);
    }
    return table;
}

Text SearchTexts::packed(std::size_t page) const {
    Text packed;
    for (const Use& use : uses_[page]) {
        const Part& part = parts_[use.part];
        if (use.isCapital) {
            appendNumber(packed, capital, split_);
        }
        if (part.number != 0) {
            packed += part.symbols;
        } else {
            appendNumber(packed, literal, split_);
            appendNumber(packed, scriptLength(part.text), split_);
            packed += part.text;
        }
    }
    return packed;
}

} // namespace web
