#include "compile/TextEncoder.h"

#include <cstdint>

#include "text/CodePage.h"
#include "workshop/Encoding.h"

namespace compile {

std::string TextEncoder::text(std::string_view utf8, const Place& place, const char* what) const {
    std::string missing;
    std::string bytes = workshop::encoded(utf8, codePage_, [&missing](char32_t character) {
        text::appendUtf8(missing, character);
        return "?";
    });
    if (!missing.empty()) {
        messages_.warn(place, std::string(what) + " has characters that code page "
                                  + std::to_string(codePage_) + " lacks: " + missing);
    }
    return bytes;
}

std::string TextEncoder::sitemap(std::string_view utf8) const {
    constexpr char32_t lastByte = 0xFF; // up to there, references stand for bytes of the code page
    return workshop::encoded(utf8, codePage_, [](char32_t character) {
        return character <= lastByte
                   ? std::string("?")
                   : "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ';';
    });
}

} // namespace compile
