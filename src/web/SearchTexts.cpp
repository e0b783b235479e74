#include "web/SearchTexts.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "text/Unicode.h"
#include "web/FrontCoder.h"
#include "web/WordScanner.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr std::size_t longestPart = 512; ///< in bytes; longer ones are cut
constexpr std::size_t mostParts = 8700;  ///< in the table; all splits have numbers for them

bool isSmall(char letter) {
    return letter >= 'a' && letter <= 'z';
}

/// "Word", whose other letters are small ones of ASCII.
bool isCapitalised(TextView word) {
    return word.size() > 1 && word.front() >= 'A' && word.front() <= 'Z'
           && std::all_of(word.begin() + 1, word.end(), isSmall);
}

/// The end of the part that begins at an offset.
std::size_t endOfPart(TextView text, std::size_t start, LetterKind& kind) {
    std::size_t end = start;
    kind = letterKind(takeCharacter(text, end));
    while (end < text.size() && end - start < longestPart && kind != LetterKind::ofRun) {
        std::size_t behind = end;
        if (letterKind(takeCharacter(text, behind)) != kind) {
            break;
        }
        end = behind;
    }
    return end;
}

/// Whether a part is worth a number: it has to stand in the table, too.
bool isWorthNumber(TextView part, std::size_t count) {
    constexpr std::size_t lengths = 2;
    constexpr std::size_t usualNumber = 2;
    const std::size_t inTable = part.size() * 2 / 3 + lengths;
    return count * (part.size() + lengths) > inTable + count * usualNumber;
}

} // namespace

SearchTexts::SearchTexts(const std::vector<Text>& texts) {
    uses_.resize(texts.size());
    for (std::size_t page = 0; page < texts.size(); ++page) {
        read(texts[page], uses_[page]);
    }
    foldCapitals();
    giveNumbers();
}

std::uint32_t SearchTexts::partOf(TextView text) {
    const auto [found, isNew] =
        partOfText_.try_emplace(text, static_cast<std::uint32_t>(parts_.size()));
    if (isNew) {
        parts_.push_back({text});
    }
    ++parts_[found->second].count;
    return found->second;
}

void SearchTexts::read(TextView text, std::vector<Use>& uses) {
    bool isBehindWord = false;
    for (std::size_t position = 0; position < text.size();) {
        LetterKind kind = LetterKind::none;
        const std::size_t end = endOfPart(text, position, kind);
        const TextView part = text.substr(position, end - position);
        std::size_t behind = end;
        const bool isGap = part == " " && isBehindWord && end < text.size()
                           && letterKind(takeCharacter(text, behind)) == LetterKind::ofWord;
        if (!isGap) {
            uses.push_back({partOf(part), false});
        }
        isBehindWord = kind == LetterKind::ofWord;
        position = end;
    }
}

/// Words that are seldom written with a capital have no number of their own for that.
void SearchTexts::foldCapitals() {
    constexpr std::size_t often = 16;
    std::vector<std::uint32_t> small(parts_.size());
    std::iota(small.begin(), small.end(), 0U);
    Text word;
    for (std::uint32_t i = 0; i < small.size(); ++i) {
        if (!isCapitalised(parts_[i].text) || parts_[i].count >= often) {
            continue;
        }
        word = parts_[i].text;
        word.front() = static_cast<char>(word.front() - 'A' + 'a');
        if (const auto found = partOfText_.find(word); found != partOfText_.end()) {
            small[i] = found->second;
            parts_[found->second].count += std::exchange(parts_[i].count, 0);
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
        return std::pair(parts_[b].count, parts_[a].text)
               < std::pair(parts_[a].count, parts_[b].text);
    });
    numbered_.resize(std::min(numbered_.size(), mostParts));
    chooseSplit();
    // Within those of the same length, the order of the alphabet makes the table short.
    const auto byText = [this](std::uint32_t a, std::uint32_t b) {
        return parts_[a].text < parts_[b].text;
    };
    const auto place = [this](std::size_t number) {
        return numbered_.begin()
               + static_cast<std::ptrdiff_t>(std::min(number - firstPart, numbered_.size()));
    };
    std::sort(numbered_.begin(), place(split_.belowTwo()), byText);
    std::sort(place(split_.belowTwo()), place(split_.belowThree()), byText);
    std::sort(place(split_.belowThree()), numbered_.end(), byText);
    for (std::size_t i = 0; i < numbered_.size(); ++i) {
        parts_[numbered_[i]].number = firstPart + i;
    }
}

/// The one with which the texts are shortest. One symbol is left for numbers of three.
void SearchTexts::chooseSplit() {
    constexpr std::size_t fewest = 20;
    constexpr std::size_t most = symbolCount - 2;
    std::vector<std::size_t> usesBefore = {0}; // of all parts before one
    for (const std::uint32_t part : numbered_) {
        usesBefore.push_back(usesBefore.back() + parts_[part].count);
    }
    const auto usesBelow = [&](std::size_t number) {
        return usesBefore[std::min(number - firstPart, numbered_.size())];
    };
    std::size_t mostSaved = 0;
    for (std::size_t alone = fewest; alone <= most; ++alone) {
        const SymbolSplit split{alone, symbolCount - 1 - alone};
        const std::size_t saved = usesBelow(split.belowTwo()) + usesBelow(split.belowThree());
        if (saved > mostSaved) {
            mostSaved = saved;
            split_ = split;
        }
    }
}

Text SearchTexts::table() const {
    Text table;
    FrontCoder coder(split_);
    for (const std::uint32_t part : numbered_) {
        coder.append(table, parts_[part].text);
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
            appendNumber(packed, part.number, split_);
        } else {
            appendNumber(packed, literal, split_);
            appendNumber(packed, scriptLength(part.text), split_);
            packed += part.text;
        }
    }
    return packed;
}

} // namespace web
