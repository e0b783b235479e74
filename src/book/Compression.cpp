#include "book/Compression.h"

#include <zlib.h>

namespace book {

std::string deflated(std::string_view bytes, Wrapping wrapping) {
    z_stream stream{};
    constexpr int window = 15; // less than nothing stands for no head
    constexpr int memory = 8;
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED,
                     wrapping == Wrapping::none ? -window : window, memory, Z_DEFAULT_STRATEGY)
        != Z_OK) {
        return {};
    }
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const bool isWhole = deflate(&stream, Z_FINISH) == Z_STREAM_END;
    packed.resize(isWhole ? stream.total_out : 0);
    deflateEnd(&stream);
    return packed;
}

std::uint32_t checksum(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

} // namespace book
