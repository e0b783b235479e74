#include "compile/WordBreaker.h"

#include <cstdint>
#include <string_view>

#include "compile/Bytes.h"
#include "workshop/Encoding.h"
#include "workshop/SearchLetters.h"

namespace compile {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view breakerId =
    "\xAF\xDA\x62\x46\x93\xD3\xD0\x11\x9A\x56\x00\xC0\x4F\xB6\x8B\xF7"sv;
constexpr std::string_view stemmerId =
    "\xA8\xD5\xA0\x8F\xDF\xDE\xD0\x11\x9A\x61\x00\xC0\x4F\xB6\x8B\xF7"sv;
constexpr std::string_view sorterId =
    "\xB0\xDA\x62\x46\x93\xD3\xD0\x11\x9A\x56\x00\xC0\x4F\xB6\x8B\x66"sv;
constexpr unsigned version = 0x04000000;

void appendLetters(std::string& bytes, unsigned codePage) {
    constexpr unsigned letters = 256;
    for (unsigned c = 0; c < letters; ++c) {
        const workshop::SearchLetter letter = workshop::searchLetter(c, codePage);
        append16(bytes, letter.kind);
        append16(bytes, letter.weight);
        for (const unsigned byte : {letter.folded, c, letter.mac, letter.macFolded}) {
            appendNumber(bytes, byte, 1);
        }
        append16(bytes, 0);
    }
}

std::string breakerEntry(unsigned language, unsigned codePage) {
    constexpr unsigned lettersSize = 2560;
    const bool hasStemmer = language == workshop::usualLanguage;
    const std::string_view folded = workshop::searchLigatures(codePage);
    std::string entry(breakerId);
    for (const std::size_t number :
         std::initializer_list<std::size_t>{version, hasStemmer ? 0x0BU : 3U, codePage, language,
                                            0U, 0U, 0x00145555U, lettersSize + folded.size()}) {
        append32(entry, number);
    }
    append16(entry, 256);
    append16(entry, folded.size() / 3);
    append16(entry, folded.empty() ? 2 : 3);
    entry.append(26, '\0');
    appendLetters(entry, codePage);
    entry += folded;
    if (hasStemmer) {
        entry += stemmerId;
        for (const unsigned number : {version, 1U, codePage, language, 0U}) {
            append32(entry, number);
        }
    }
    return entry;
}

} // namespace

std::string wordBreaker(unsigned language) {
    constexpr unsigned headerSize = 24;
    constexpr unsigned sorterSize = 36;
    const unsigned codePage = workshop::codePageOf(language);
    const std::string entry = breakerEntry(language, codePage);
    std::string bytes;
    for (const std::size_t number : std::initializer_list<std::size_t>{
             version, 2U, headerSize, entry.size(), headerSize + entry.size(), sorterSize}) {
        append32(bytes, number);
    }
    bytes += entry;
    bytes += sorterId;
    for (const unsigned number : {0x29AU, codePage, language, 10031U, 0U}) {
        append32(bytes, number);
    }
    return bytes;
}

} // namespace compile
