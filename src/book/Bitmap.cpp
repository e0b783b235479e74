#include "book/Bitmap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>

#include "book/Compression.h"

namespace book {

namespace {

using std::string_view;

constexpr std::size_t fileHead = 14;
constexpr std::uint32_t coreHead = 12; ///< the oldest one, with short numbers
constexpr std::int64_t mostPoints = 40'000'000;
// Of runs, which leave out what nobody drew: with more points than these, a few bytes would only
// take memory.
constexpr std::int64_t pointsOfAny = 1'000'000;
constexpr std::int64_t pointsOfByte = 4096;

enum Packing : std::uint32_t { plain, runsOfBytes, runsOfHalves, masks, masksWithAlpha = 6 };

/// Little end first; what is not there counts as 0.
std::uint32_t number(string_view bytes, std::size_t at, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i) {
        const std::size_t place = at + static_cast<std::size_t>(i);
        value = value << 8U | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0);
    }
    return value;
}

/// One colour's part of a point.
class Channel {
public:
    Channel() = default;
    explicit Channel(std::uint32_t mask)
        : shift_(mask != 0 ? static_cast<unsigned>(std::countr_zero(mask)) : 0),
          most_(mask >> shift_) {}

    bool isThere() const { return most_ != 0; }
    bool isWhole() const { return (std::uint64_t(most_) & (std::uint64_t(most_) + 1)) == 0; }

    /// From 0 to 255.
    char of(std::uint32_t point) const {
        const std::uint64_t value = (point >> shift_) & most_;
        return static_cast<char>(most_ == 0 ? 0 : (value * 255 + most_ / 2) / most_);
    }

private:
    unsigned shift_ = 0;
    std::uint32_t most_ = 0;
};

/// What its heads say of a bitmap.
class Bitmap {
public:
    explicit Bitmap(string_view bytes) : bytes_(bytes) {
        head_ = number(bytes, fileHead, 4);
        const bool isOld = head_ == coreHead;
        const std::size_t at = fileHead + 4;
        const int size = isOld ? 2 : 4;
        const auto length = [&](std::size_t place) {
            const std::uint32_t value = number(bytes, place, size);
            return isOld ? std::int64_t(value) : std::int64_t(static_cast<std::int32_t>(value));
        };
        width_ = length(at);
        height_ = length(at + static_cast<std::size_t>(size));
        isDownwards_ = height_ < 0;
        height_ = std::abs(height_);
        bits_ = number(bytes, at + (isOld ? 6 : 10), 2);
        packing_ = isOld ? 0 : number(bytes, at + 12, 4);
        start_ = number(bytes, fileHead - 4, 4);
        if (bits_ <= 8) {
            readColours(isOld ? 3 : 4, isOld ? 0 : number(bytes, at + 28, 4));
        } else {
            readChannels();
        }
    }

    bool canBeRead() const {
        constexpr std::array<std::uint32_t, 6> sizes = {1, 4, 8, 16, 24, 32};
        const bool isPacked = packing_ == runsOfBytes || packing_ == runsOfHalves;
        const bool isKnown =
            packing_ == plain || (packing_ == runsOfBytes && bits_ == 8)
            || (packing_ == runsOfHalves && bits_ == 4)
            || ((packing_ == masks || packing_ == masksWithAlpha) && (bits_ == 16 || bits_ == 32));
        return bytes_.starts_with("BM") && (head_ == coreHead || head_ >= 40) && head_ <= 1024
               && start_ <= bytes_.size() && width_ > 0 && height_ > 0
               && width_ <= mostPoints / height_
               && std::find(sizes.begin(), sizes.end(), bits_) != sizes.end() && isKnown
               && std::all_of(channels_.begin(), channels_.end(),
                              [](Channel c) { return c.isWhole(); })
               && (isPacked ? !isDownwards_ && width_ * height_ <= mostPointsOfRuns()
                            : std::uint64_t(rowSize()) * std::uint64_t(height_)
                                  <= bytes_.size() - start_);
    }

    std::string png() const;

private:
    void readColours(int size, std::uint32_t count);
    void readChannels();
    std::size_t rowSize() const { return (std::size_t(width_) * bits_ + 31) / 32 * 4; }
    std::int64_t mostPointsOfRuns() const {
        return pointsOfAny + pointsOfByte * static_cast<std::int64_t>(bytes_.size() - start_);
    }
    std::string unpacked() const;
    string_view row(std::int64_t fromTop) const;
    void appendRow(std::string& points, string_view row, bool withAlpha) const;
    bool showsAlpha() const;

    string_view bytes_;
    std::uint32_t head_ = 0;
    std::int64_t width_ = 0;
    std::int64_t height_ = 0;
    bool isDownwards_ = false;
    std::uint32_t bits_ = 0;
    std::uint32_t packing_ = 0;
    std::uint32_t start_ = 0;
    std::string colours_;             ///< three bytes each
    std::array<Channel, 4> channels_; ///< red, green, blue, alpha
};

void Bitmap::readColours(int size, std::uint32_t count) {
    const std::uint32_t most = 1U << bits_;
    count = count == 0 || count > most ? most : count;
    colours_.assign(std::size_t(3) * most, '\0');
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = fileHead + head_ + i * static_cast<std::size_t>(size);
        for (std::size_t part = 0; part < 3; ++part) {
            colours_[i * 3 + part] = static_cast<char>(number(bytes_, at + 2 - part, 1));
        }
    }
}

void Bitmap::readChannels() {
    if (packing_ == plain) {
        const bool isShort = bits_ == 16;
        channels_ = {Channel(isShort ? 0x7C00 : 0xFF0000), Channel(isShort ? 0x3E0 : 0xFF00),
                     Channel(isShort ? 0x1F : 0xFF), Channel()};
        return;
    }
    constexpr std::size_t firstMask = fileHead + 40; // in later heads, or behind the usual one
    const bool hasAlpha = head_ >= 56 || packing_ == masksWithAlpha;
    for (std::size_t i = 0; i < (hasAlpha ? 4U : 3U); ++i) {
        channels_[i] = Channel(number(bytes_, firstMask + i * 4, 4));
    }
}

/// Rows of one byte for each point, the lowest one first. What the runs leave out is the first
/// colour, and what they have too many of is left out.
std::string Bitmap::unpacked() const {
    std::string points(std::size_t(width_) * std::size_t(height_), '\0');
    std::int64_t x = 0;
    std::int64_t y = 0;
    const auto put = [&](std::uint32_t colour) {
        points[std::size_t(y * width_ + x++)] = static_cast<char>(colour);
    };
    const bool isHalf = packing_ == runsOfHalves;
    const auto colourOf = [isHalf](std::uint32_t byte, std::uint32_t index) {
        return !isHalf ? byte : index % 2 == 0 ? byte >> 4U : byte & 0xFU;
    };
    for (std::size_t at = start_; at + 1 < bytes_.size() && y < height_; at += 2) {
        const std::uint32_t count = number(bytes_, at, 1);
        const std::uint32_t value = number(bytes_, at + 1, 1);
        if (count > 0) {
            for (std::uint32_t i = 0; i < count && x < width_; ++i) {
                put(colourOf(value, i));
            }
        } else if (value == 0) { // the end of a row
            x = 0;
            ++y;
        } else if (value == 1) { // the end of all
            break;
        } else if (value == 2) { // goes on at another place
            x += number(bytes_, at + 2, 1);
            y += number(bytes_, at + 3, 1);
            at += 2;
        } else { // single points, in whole pairs of bytes
            const std::size_t size = isHalf ? (value + 1) / 2 : value;
            for (std::uint32_t i = 0; i < value && x < width_; ++i) {
                put(colourOf(number(bytes_, at + 2 + (isHalf ? i / 2 : i), 1), i));
            }
            at += (size + 1) / 2 * 2;
        }
    }
    return points;
}

string_view Bitmap::row(std::int64_t fromTop) const {
    const auto index = static_cast<std::size_t>(isDownwards_ ? fromTop : height_ - 1 - fromTop);
    return bytes_.substr(start_ + index * rowSize(), rowSize());
}

void Bitmap::appendRow(std::string& points, string_view row, bool withAlpha) const {
    const std::size_t size = bits_ / 8;
    for (std::size_t x = 0; x < std::size_t(width_); ++x) {
        if (size == 0) { // several in a byte, the first one in the highest bits
            const std::size_t at = x * bits_;
            const auto byte = static_cast<unsigned char>(row[at / 8]);
            points += static_cast<char>((byte >> (8 - bits_ - at % 8)) & ((1U << bits_) - 1));
        } else if (size == 1) {
            points += row[x];
        } else {
            const std::uint32_t point = number(row, x * size, static_cast<int>(size));
            for (std::size_t i = 0; i < (withAlpha ? 4U : 3U); ++i) {
                points += channels_[i].of(point);
            }
        }
    }
}

/// Programs that know no alpha leave its bits empty, and nobody would see their pictures.
bool Bitmap::showsAlpha() const {
    if (!channels_[3].isThere()) {
        return false;
    }
    for (std::int64_t y = 0; y < height_; ++y) {
        const string_view points = row(y);
        for (std::size_t x = 0; x < std::size_t(width_); ++x) {
            if (channels_[3].of(number(points, x * bits_ / 8, static_cast<int>(bits_ / 8))) != 0) {
                return true;
            }
        }
    }
    return false;
}

/// Big end first.
void appendBig(std::string& bytes, std::size_t number) {
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(number >> shift & 0xFFU);
    }
}

void appendChunk(std::string& png, string_view name, string_view contents) {
    appendBig(png, contents.size());
    const std::size_t start = png.size();
    png.append(name).append(contents);
    appendBig(png, checksum(string_view(png).substr(start)));
}

std::string Bitmap::png() const {
    const bool isPacked = packing_ == runsOfBytes || packing_ == runsOfHalves;
    const std::string unpackedRows = isPacked ? unpacked() : std::string();
    const bool withAlpha = showsAlpha();
    std::string points;
    points.reserve(std::size_t(height_) * (1 + std::size_t(width_) * (bits_ <= 8 ? 1 : 4)));
    for (std::int64_t y = 0; y < height_; ++y) {
        points += '\0'; // as it is, not as the difference to another one
        if (isPacked) {
            points.append(unpackedRows, std::size_t((height_ - 1 - y) * width_),
                          std::size_t(width_));
        } else {
            appendRow(points, row(y), withAlpha);
        }
    }
    const std::string packed = deflated(points, Wrapping::zlib);
    if (packed.empty()) {
        return {};
    }
    std::string head;
    appendBig(head, std::size_t(width_));
    appendBig(head, std::size_t(height_));
    constexpr char colours = 2;
    constexpr char colourTable = 3;
    constexpr char coloursAndAlpha = 6;
    head += {8, bits_ <= 8 ? colourTable : withAlpha ? coloursAndAlpha : colours, 0, 0, 0};
    std::string png = "\x89PNG\r\n\x1A\n";
    appendChunk(png, "IHDR", head);
    if (bits_ <= 8) {
        appendChunk(png, "PLTE", colours_);
    }
    appendChunk(png, "IDAT", packed);
    appendChunk(png, "IEND", {});
    return png;
}

} // namespace

std::optional<std::string> pngOfBitmap(string_view bitmap) {
    const Bitmap read(bitmap);
    std::string png = read.canBeRead() ? read.png() : std::string();
    return png.empty() ? std::nullopt : std::optional(std::move(png));
}

} // namespace book
