#include "book/ZipFile.h"

#include <limits>
#include <utility>

#include "book/Compression.h"

namespace book {

namespace {

constexpr std::uint64_t mostBytes = std::uint64_t(1) << 30U;

/// Little end first.
void appendNumber(std::string& bytes, std::uint64_t number, int size) {
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(number & 0xFFU);
        number >>= 8U;
    }
}

/// What the head of a file and its entry in the directory share.
std::string facts(std::string_view name, std::string_view contents, std::string_view packed,
                  bool isPacked) {
    constexpr int version = 20;
    constexpr int isDeflated = 8;
    constexpr int firstDay = 0x21; // of 1980: there is no time without a date
    std::string bytes;
    appendNumber(bytes, version, 2);
    appendNumber(bytes, 0, 2);
    appendNumber(bytes, isPacked ? isDeflated : 0, 2);
    appendNumber(bytes, 0, 2);
    appendNumber(bytes, firstDay, 2);
    appendNumber(bytes, checksum(contents), 4);
    appendNumber(bytes, packed.size(), 4);
    appendNumber(bytes, contents.size(), 4);
    appendNumber(bytes, name.size(), 2);
    appendNumber(bytes, 0, 2);
    return bytes;
}

} // namespace

void ZipFile::add(std::string_view name, std::string_view contents, bool stored) {
    if (isTooLarge_ || contents.size() > mostBytes) {
        isTooLarge_ = true;
        return;
    }
    const std::string packed = stored ? std::string() : deflated(contents, Wrapping::none);
    const bool isPacked = !packed.empty() && packed.size() <= contents.size();
    const std::string_view data = isPacked ? packed : contents;
    const std::string shared = facts(name, contents, data, isPacked);
    directory_.append("PK\1\2\x14\0", 6).append(shared);
    appendNumber(directory_, 0, 2 + 2 + 2); // no comment, the first disk, nothing special
    appendNumber(directory_, 0, 4);
    appendNumber(directory_, bytes_.size(), 4);
    directory_.append(name);
    bytes_.append("PK\3\4").append(shared).append(name).append(data);
    ++count_;
    isTooLarge_ = bytes_.size() > mostBytes || count_ >= std::numeric_limits<std::uint16_t>::max();
}

std::string ZipFile::take() {
    if (isTooLarge_) {
        return {};
    }
    const std::size_t start = bytes_.size();
    bytes_ += directory_;
    bytes_ += "PK\5\6";
    appendNumber(bytes_, 0, 4);
    appendNumber(bytes_, count_, 2);
    appendNumber(bytes_, count_, 2);
    appendNumber(bytes_, directory_.size(), 4);
    appendNumber(bytes_, start, 4);
    appendNumber(bytes_, 0, 2);
    return std::exchange(bytes_, {});
}

} // namespace book
