#include "compile/Tables.h"

#include <algorithm>
#include <numeric>

#include "compile/Bytes.h"

namespace compile {

namespace {

/// Readers take the tables in blocks of this size, and a text must not lie in two of them.
constexpr std::size_t blockSize = 4096;

void beginBlockUnlessFits(std::string& bytes, std::size_t size) {
    const std::size_t used = bytes.size() % blockSize;
    if (used + size > blockSize) {
        bytes.append(blockSize - used, '\0');
    }
}

} // namespace

std::uint32_t StringTable::add(std::string_view text) {
    text = text.substr(0, longest);
    if (text.empty()) {
        return 0;
    }
    const auto [place, isNew] = known_.try_emplace(std::string(text));
    if (isNew) {
        beginBlockUnlessFits(bytes_, text.size() + 1);
        place->second = static_cast<std::uint32_t>(bytes_.size());
        bytes_ += text;
        bytes_ += '\0';
    }
    return place->second;
}

std::uint32_t TopicTable::add(std::string_view address, std::uint32_t title, TopicKind kind) {
    rows_.push_back({std::string(address), title, kind});
    return size() - 1;
}

std::uint32_t addressHash(std::string_view address) {
    std::uint32_t hash = 0;
    for (const char character : address) {
        int value = 0x2C;
        if (character != '/' && character != '\\') {
            constexpr int negative = 0x80; // from there on bytes count as negative numbers
            const int byte = static_cast<unsigned char>(character);
            const int code = byte < negative ? byte : byte - 2 * negative;
            value = code - (code <= 'Z' ? 0x30 : 0x50);
        }
        hash = 43 * hash + static_cast<std::uint32_t>(value);
    }
    return hash == 0 ? 1 : hash;
}

TopicTable::Bytes TopicTable::bytes() const {
    constexpr std::size_t rowSize = 12;
    constexpr std::size_t longestAddress = blockSize - 16;
    Bytes tables;
    std::vector<std::uint32_t> hashes;
    std::vector<std::uint32_t> texts;
    hashes.reserve(rows_.size());
    texts.reserve(rows_.size());
    tables.texts.push_back('\0');
    for (const Row& row : rows_) {
        const std::string_view address = std::string_view(row.address).substr(0, longestAddress);
        hashes.push_back(addressHash(address));
        beginBlockUnlessFits(tables.texts, 8 + address.size() + 1);
        texts.push_back(static_cast<std::uint32_t>(tables.texts.size()));
        append32(tables.texts, 0);
        append32(tables.texts, 0);
        tables.texts += address;
        tables.texts += '\0';
    }
    std::vector<std::uint32_t> order(rows_.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return hashes[a] < hashes[b]; });
    std::vector<std::uint32_t> places(rows_.size());
    for (const std::uint32_t topic : order) {
        if (tables.addresses.size() % blockSize + rowSize > blockSize) {
            append32(tables.addresses, 0);
        }
        places[topic] = static_cast<std::uint32_t>(tables.addresses.size());
        append32(tables.addresses, hashes[topic]);
        append32(tables.addresses, topic);
        append32(tables.addresses, texts[topic]);
    }
    for (std::size_t topic = 0; topic < rows_.size(); ++topic) {
        const Row& row = rows_[topic];
        append32(tables.topics, row.node);
        append32(tables.topics, row.title);
        append32(tables.topics, places[topic]);
        append32(tables.topics, static_cast<std::uint16_t>(row.kind));
    }
    return tables;
}

} // namespace compile
