#include "web/SearchTexts.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

#include "text/Unicode.h"
#include "web/FrontCoder.h"
#include "web/PartScanner.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr std::size_t mostParts = 17000; ///< in the table, which everybody loads who searches
constexpr std::uint32_t often = 10;      ///< that a pair of parts becomes one

/// Whether a part is worth a number: it has to stand in the table, too.
bool isWorthNumber(TextView part, std::size_t count) {
    constexpr std::size_t lengths = 2;
    constexpr std::size_t usualNumber = 2;
    const std::size_t inTable = part.size() * 2 / 3 + lengths;
    return !SearchTexts::isMark(part)
           && count * (part.size() + lengths) > inTable + count * usualNumber;
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
    std::size_t uses = 0;
    std::size_t capitals = 0;
    for (const std::vector<Use>& page : uses_) {
        uses += page.size();
        capitals += static_cast<std::size_t>(
            std::count_if(page.begin(), page.end(), [](const Use& use) { return use.isCapital; }));
    }
    for (std::uint32_t i = 0; i < parts_.size(); ++i) {
        if (isWorthNumber(parts_[i].text, parts_[i].count)) {
            numbered_.push_back(i);
        }
    }
    const auto isMoreFrequent = [this](std::uint32_t a, std::uint32_t b) {
        return parts_[a].count != parts_[b].count ? parts_[a].count > parts_[b].count
                                                  : isBefore(parts_[a].text, parts_[b].text);
    };
    std::sort(numbered_.begin(), numbered_.end(), isMoreFrequent);
    numbered_.resize(std::min(numbered_.size(), mostParts));
    for (const std::uint32_t part : numbered_) {
        uses -= parts_[part].count;
    }
    literal_ = addMark(literal, uses);
    capital_ = addMark(capital, capitals);
    end_ = addMark(end, uses_.size());
    for (const std::uint32_t mark : {literal_, capital_, end_}) {
        numbered_.insert(std::upper_bound(numbered_.begin(), numbered_.end(), mark, isMoreFrequent),
                         mark);
    }
    std::vector<std::uint32_t> frequencies;
    for (const std::uint32_t part : numbered_) {
        frequencies.push_back(static_cast<std::uint32_t>(parts_[part].count));
        parts_[part].number = 0; // known to have one
    }
    code_ = PrefixCode::of(frequencies);
    sortLengths();
    for (std::uint32_t i = 0; i < numbered_.size(); ++i) {
        parts_[numbered_[i]].number = i;
    }
}

std::uint32_t SearchTexts::addMark(TextView mark, std::size_t count) {
    Part& part = parts_.emplace_back();
    part.text = mark;
    part.count = std::max<std::size_t>(count, 1);
    return static_cast<std::uint32_t>(parts_.size() - 1);
}

/// Within those of the same length, the order of the alphabet makes the table short.
void SearchTexts::sortLengths() {
    auto first = numbered_.begin();
    for (const std::size_t count : code_.counts()) {
        const auto last = first + static_cast<std::ptrdiff_t>(count);
        std::sort(first, last, [this](std::uint32_t a, std::uint32_t b) {
            const bool isFirst = isSpelled(a);
            return isFirst != isSpelled(b) ? isFirst : isBefore(parts_[a].text, parts_[b].text);
        });
        first = last;
    }
}

bool SearchTexts::isSpelled(std::uint32_t part) const {
    const Part& known = parts_[part];
    return !known.isJoined || parts_[known.one].number == noNumber
           || parts_[known.other].number == noNumber;
}

/// Calls a function with the parts of each length: those that are spelled, and the others.
template <typename Function>
void SearchTexts::forLengths(const Function& function) const {
    std::span<const std::uint32_t> rest = numbered_;
    for (const std::size_t count : code_.counts()) {
        const auto parts = rest.first(count);
        const auto joined = std::partition_point(
            parts.begin(), parts.end(), [this](std::uint32_t part) { return isSpelled(part); });
        const auto spelled = static_cast<std::size_t>(joined - parts.begin());
        function(parts.first(spelled), parts.subspan(spelled));
        rest = rest.subspan(count);
    }
}

void SearchTexts::countLetters(LetterCounts& counts) const {
    forLengths([&](const auto& spelled, const auto&) {
        FrontCoder coder;
        for (const std::uint32_t part : spelled) {
            coder.count(counts, parts_[part].text);
        }
    });
    for (const Part& part : parts_) {
        if (part.number == noNumber && part.count > 0) {
            counts.add(lettersOf(part.text), 0, static_cast<std::uint32_t>(part.count));
        }
    }
}

Text SearchTexts::table(const LetterCode& letters) const {
    BitText table;
    table.appendGamma(code_.counts().size());
    forLengths([&](const auto& spelled, const auto& joined) {
        table.appendGamma(spelled.size() + 1);
        table.appendGamma(joined.size() + 1);
    });
    forLengths([&](const auto& spelled, const auto&) {
        FrontCoder coder;
        for (const std::uint32_t part : spelled) {
            coder.append(table, letters, parts_[part].text);
        }
    });
    forLengths([&](const auto&, const auto& joined) {
        for (const std::uint32_t part : joined) {
            code_.append(table, parts_[parts_[part].one].number);
            code_.append(table, parts_[parts_[part].other].number);
        }
    });
    return table.take();
}

void SearchTexts::pack(std::size_t page, const LetterCode& letters, BitText& bits) const {
    for (const Use& use : uses_[page]) {
        const Part& part = parts_[use.part];
        if (use.isCapital) {
            code_.append(bits, parts_[capital_].number);
        }
        if (part.number != noNumber) {
            code_.append(bits, part.number);
        } else {
            code_.append(bits, parts_[literal_].number);
            letters.append(bits, lettersOf(part.text), 0);
        }
    }
    code_.append(bits, parts_[end_].number);
}

} // namespace web
