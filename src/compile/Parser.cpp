#include "compile/Parser.h"

#include <algorithm>

#include "compile/LzxFormat.h"

namespace compile {

namespace {

// What tokens take in bits before their code is known; found by trying on pages.
constexpr int byteCost = 6;
constexpr int matchCost = 11; ///< and the bits of the distance
constexpr int lastDistanceCost = 7;
constexpr int longMatchCost = 3; ///< more for the length

constexpr unsigned longEnough = 120;  ///< nothing better is looked for
constexpr std::uint32_t wordSize = 4; ///< that the finder needs

} // namespace

void Parser::Choice::improve(unsigned length, unsigned value, int cost) {
    const int longer = length >= shortestMatch + mainLengths ? longMatchCost : 0;
    const int saved = static_cast<int>(length) * byteCost - cost - longer;
    if (saved > gain) {
        token = {static_cast<std::uint16_t>(length), static_cast<std::uint16_t>(value)};
        gain = saved;
    }
}

/// The match that saves most. None goes beyond its frame.
Parser::Choice Parser::choose(std::uint32_t place) {
    Choice best;
    if (place >= size_) {
        return best;
    }
    for (; known_ < place && known_ + wordSize <= size_; ++known_) {
        finder_.insert(known_);
    }
    const auto frameEnd = static_cast<std::uint32_t>((place / frameSize + 1) * frameSize);
    const unsigned most = std::min<std::uint32_t>(longestMatch, frameEnd - place);
    unsigned longest = shortestMatch;
    for (unsigned i = 0; i < distances_.last.size(); ++i) {
        const std::uint32_t distance = distances_.last[i];
        if (distance <= place) {
            const unsigned length = commonLength(bytes_ + place - distance, bytes_ + place, most);
            if (length >= shortestMatch) {
                best.improve(length, i, lastDistanceCost);
                longest = std::max(longest, length);
            }
        }
    }
    if (longest < longEnough && place + wordSize <= size_) {
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
    while (choice.gain > 0 && choice.token.length < longEnough) {
        const Choice later = choose(place_ + 1);
        if (later.gain <= choice.gain) {
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
        const Choice choice = laterIfBetter(choose(place_));
        if (choice.gain == 0) {
            addByte();
            continue;
        }
        tokens.push_back(choice.token);
        distances_.note(choice.token);
        place_ += choice.token.length;
    }
}

} // namespace compile
