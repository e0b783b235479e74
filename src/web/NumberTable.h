#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "text/Text.h"

namespace web {

/// Of all bytes; equal texts have equal numbers on every machine of the same byte order.
inline std::uint64_t hashOf(text::TextView bytes) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    constexpr unsigned half = 32;
    std::uint64_t hash = bytes.size() * factor;
    const auto mix = [&hash](std::uint64_t value) {
        hash = (hash ^ value) * factor;
        hash ^= hash >> half;
    };
    std::uint64_t word = 0;
    for (; bytes.size() >= sizeof word; bytes.remove_prefix(sizeof word)) {
        std::memcpy(&word, bytes.data(), sizeof word);
        mix(word);
    }
    word = 0;
    for (const char byte : bytes) {
        word = word << std::uint64_t(8) | static_cast<unsigned char>(byte);
    }
    mix(word);
    return hash;
}

inline std::uint64_t hashOf(std::uint64_t number) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    constexpr unsigned half = 32;
    number *= factor;
    return number ^ number >> half;
}

/// Whether one text comes before another, byte by byte; the first ones of words decide mostly.
inline bool isBefore(text::TextView one, text::TextView other) {
    const auto beginning = [](text::TextView text) {
        std::uint32_t bytes = 0;
        for (std::size_t i = 0; i < sizeof bytes; ++i) {
            const char byte = i < text.size() ? text[i] : '\0';
            bytes = bytes << 8U | static_cast<unsigned char>(byte);
        }
        return bytes;
    };
    const std::uint32_t first = beginning(one);
    const std::uint32_t second = beginning(other);
    return first != second ? first < second : one < other;
}

/// Numbers keys from 0, in the order in which they come first. Made for many keys and few bytes:
/// the tables of a search are filled with every word of every page.
template <typename Key>
class NumberTable {
public:
    struct Found {
        std::uint32_t number;
        bool isNew;
    };
    /// What a key is made of must outlive the table.
    Found numberOf(Key key) {
        if (2 * keys_.size() >= slots_.size()) {
            grow();
        }
        Slot& slot = slots_[slotOf(key, hashOf(key))];
        const bool isNew = slot.place == 0;
        if (isNew) {
            keys_.push_back(key);
            slot = {static_cast<std::uint32_t>(hashOf(key)),
                    static_cast<std::uint32_t>(keys_.size())};
        }
        return {slot.place - 1, isNew};
    }

    std::optional<std::uint32_t> find(Key key) const {
        const std::uint32_t place = slots_.empty() ? 0 : slots_[slotOf(key, hashOf(key))].place;
        return place > 0 ? std::optional(place - 1) : std::nullopt;
    }

    const std::vector<Key>& keys() const { return keys_; } ///< by their numbers

    /// The key behind a number is another one with the same contents.
    void moveKey(std::uint32_t number, Key key) { keys_[number] = key; }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t place = 0; ///< 0 for none, otherwise the number after that of the key
    };

    std::size_t slotOf(const Key& key, std::uint64_t hash) const {
        const std::size_t mask = slots_.size() - 1;
        std::size_t at = static_cast<std::uint32_t>(hash) & mask;
        while (slots_[at].place > 0
               && (slots_[at].hash != static_cast<std::uint32_t>(hash)
                   || keys_[slots_[at].place - 1] != key)) {
            at = (at + 1) & mask;
        }
        return at;
    }

    void grow() {
        constexpr std::size_t fewest = 1024;
        std::vector<Slot> old(slots_.empty() ? fewest : 2 * slots_.size());
        old.swap(slots_);
        const std::size_t mask = slots_.size() - 1;
        for (const Slot& slot : old) {
            std::size_t at = slot.hash & mask;
            while (slot.place > 0 && slots_[at].place > 0) {
                at = (at + 1) & mask;
            }
            if (slot.place > 0) {
                slots_[at] = slot;
            }
        }
    }

    std::vector<Key> keys_;
    std::vector<Slot> slots_; ///< as many as a power of two
};

} // namespace web
