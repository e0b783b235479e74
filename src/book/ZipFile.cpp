#include "book/ZipFile.h"

#include <limits>
#include <optional>
#include <utility>
#include <zlib.h>

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

/// Without a head of its own; nothing when that would be larger.
std::optional<std::string> compressed(std::string_view contents) {
    z_stream stream{};
    constexpr int rawWindow = -15;
    constexpr int memory = 8;
    if (contents.empty()
        || deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, rawWindow, memory,
                        Z_DEFAULT_STRATEGY)
               != Z_OK) {
        return {};
    }
    std::string packed(contents.size(), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(contents.data()));
    stream.avail_in = static_cast<uInt>(contents.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const bool isWhole = deflate(&stream, Z_FINISH) == Z_STREAM_END;
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return isWhole ? std::optional(std::move(packed)) : std::nullopt;
}

/// What the head of a file and its entry in the directory share.
std::string facts(std::string_view name, std::string_view contents, std::string_view packed,
                  bool isPacked) {
    constexpr int version = 20;
    constexpr int firstDay = 0x21; // of 1980: there is no time without a date
    const auto size = static_cast<uInt>(contents.size());
    std::string bytes;
    appendNumber(bytes, version, 2);
    appendNumber(bytes, 0, 2);
    appendNumber(bytes, isPacked ? Z_DEFLATED : 0, 2);
    appendNumber(bytes, 0, 2);
    appendNumber(bytes, firstDay, 2);
    appendNumber(bytes, crc32(0, reinterpret_cast<const Bytef*>(contents.data()), size), 4);
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
    const auto packed = stored ? std::nullopt : compressed(contents);
    const std::string_view data = packed ? *packed : contents;
    const std::string shared = facts(name, contents, data, packed.has_value());
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
