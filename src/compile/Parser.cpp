#include "compile/Parser.h"

#include <algorithm>
#include <cstring>

#include "compile/LzxFormat.h"

namespace compile {

namespace {

// What tokens take in bits before their code is known; found by trying on pages.
constexpr int byteCost = 7;
constexpr int laterByteCost = 4; ///< about, of a byte that the next token takes care of
constexpr int matchCost = 9;     ///< and the bits of the distance
constexpr int lastDistanceCost = 5;
constexpr int longMatchCost = 3; ///< more for the length

constexpr unsigned longEnough = 120;    ///< nothing better is looked for
constexpr std::uint32_t wordSize = 4;   ///< that the finder needs
constexpr std::uint32_t knownEnds = 32; ///< of a longer match, its middle does not become known

} // namespace

void Parser::Choice::improve(unsigned length, unsigned value, int cost) {
    const int longer = length >= shortestMatch + mainLengths ? longMatchCost : 0;
    const int saved = static_cast<int>(length) * laterByteCost - cost - longer;
    if (saved > gain) {
        token = {static_cast<std::uint16_t>(length), static_cast<std::uint16_t>(value)};
        gain = saved;
    }
}

void Parser::makeKnown(std::uint32_t end) {
    for (; known_ < end && known_ + wordSize <= size_; ++known_) {
        finder_.insert(known_);
    }
}

/// The match that saves most; `longest` is what it has to exceed unless its distance is one of the
/// last. None goes beyond its frame.
Parser::Choice Parser::choose(std::uint32_t place, unsigned longest) {
    Choice best{{}, laterByteCost - byteCost};
    if (place >= size_) {
        return best;
    }
    makeKnown(place);
    const auto frameEnd = static_cast<std::uint32_t>((place / frameSize + 1) * frameSize);
    const unsigned most = std::min<std::uint32_t>(longestMatch, frameEnd - place);
    for (unsigned i = 0; i < distances_.last.size(); ++i) {
        const std::uint32_t distance = distances_.last[i];
        if (distance <= place
            && std::memcmp(bytes_ + place - distance, bytes_ + place, shortestMatch) == 0) {
            const unsigned length = commonLength(bytes_ + place - distance, bytes_ + place, most);
            if (length >= shortestMatch) {
                best.improve(length, i, lastDistanceCost);
                longest = std::max(longest, length);
            }
        }
    }
    if (longest < longEnough && place > 0 && place + wordSize <= size_) {
        finder_.find(place, longest, most, [&](unsigned length, std::uint32_t distance) {
            const unsigned value = distance + distanceOffset;
            best.improve(length, value, matchCost + static_cast<int>(extraBits(slotOf(value))));
        });
    }
    return best;
}

/// A byte may come first when that makes room for a better match. To look further ahead takes
/// longer, and makes what is rated as roughly as here no smaller.
Parser::Choice Parser::laterIfBetter(Choice choice) {
    while (choice.isMatch() && choice.token.length < longEnough) {
        const unsigned longest = std::max<unsigned>(shortestMatch, choice.token.length - 1U);
        const Choice later = choose(place_ + 1, longest);
        if (later.gain + laterByteCost - byteCost <= choice.gain) {
            break;
        }
        addByte();
        choice = later;
    }
    return choice;
}

void Parser::addByte() {
    tokens_->push_back({1, bytes_[place_++]});
}

void Parser::parse(const std::uint8_t* interval, std::size_t size, std::vector<Token>& tokens) {
    bytes_ = interval;
    size_ = static_cast<std::uint32_t>(size);
    place_ = 0;
    known_ = 0;
    distances_ = {};
    tokens_ = &tokens;
    tokens.clear();
    if (!finder_.start(interval, size_)) { // pictures, mostly
        tokens.reserve(size);
        while (place_ < size_) {
            addByte();
        }
    }
    while (place_ < size_) {
        const Choice choice = laterIfBetter(choose(place_, shortestMatch));
        if (!choice.isMatch()) {
            addByte();
            continue;
        }
        tokens.push_back(choice.token);
        distances_.note(choice.token);
        makeKnown(place_ + std::min<std::uint32_t>(choice.token.length, knownEnds));
        place_ += choice.token.length;
        known_ = std::max(known_, place_ - std::min(place_, knownEnds));
    }
}

} // namespace compile
