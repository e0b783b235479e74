#include "text/CodePageTable.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <map>
#include <mutex>
#include <numeric>
#include <utf8proc.h>

#include "platform/Unicode.h"
#include "text/CodePage.h"

namespace text {

namespace {

/// The western characters of the codes 128 to 159; all others are the Unicode character of the same
/// number. The systems do not agree about the five gaps, so the table is our own.
constexpr std::array<char32_t, 32> westernSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Correction {
    std::string_view bytes;
    unsigned codePage;
    char32_t character;
};

/// What a code page of Windows has, and one system or another does not know, or writes in another
/// of two forms.
constexpr Correction corrections[] = {
    {"\xF9\xE9", 950, 0x255E}, {"\xF9\xEA", 950, 0x256A}, {"\xF9\xEB", 950, 0x2561},
    {"\xF9\xF9", 950, 0x2550}, {"\xCA", 1255, 0x05BA},    {"\xA1", 28597, 0x2018},
    {"\xA2", 28597, 0x2019},   {"\xA4", 28597, 0x20AC},   {"\xA5", 28597, 0x20AF},
    {"\xAA", 28597, 0x037A},
};

/// Whether the character is one that the code page has: some systems take a byte without one for a
/// control character or for a character of private use.
bool isReal(char32_t character, unsigned codePage) {
    constexpr unsigned firstIso = 28591;
    constexpr unsigned lastIso = 28605;
    const bool isIso = codePage >= firstIso && codePage <= lastIso; // which have control characters
    const bool isControl = character >= 0x80 && character < 0xA0;
    const bool isPrivate = character >= 0xE000 && character <= 0xF8FF;
    return character != replacementCharacter && (isIso || !isControl) && !isPrivate;
}

/// The character that the system knows for a byte or two; the replacement character for none.
char32_t characterOf(std::string_view bytes, unsigned codePage) {
    const std::string utf8 = platform::utf8FromCodePage(bytes, codePage);
    std::string_view rest = utf8;
    const char32_t character = rest.empty() ? replacementCharacter : takeUtf8(rest);
    return rest.empty() && isReal(character, codePage) ? character : replacementCharacter;
}

bool isMark(char32_t character) {
    const auto* property = utf8proc_get_property(static_cast<utf8proc_int32_t>(character));
    return property->combining_class != 0;
}

/// The character that a letter and a mark make; 0 where there is none.
char32_t composed(char32_t letter, char32_t mark) {
    std::string both;
    appendUtf8(both, letter);
    appendUtf8(both, mark);
    constexpr auto how = static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE);
    std::array<utf8proc_int32_t, 8> parts{}; // no letter has more
    const auto bytes = reinterpret_cast<const utf8proc_uint8_t*>(both.data());
    const auto count = utf8proc_decompose(bytes, static_cast<utf8proc_ssize_t>(both.size()),
                                          parts.data(), parts.size(), how);
    const bool fits = count > 0 && count <= static_cast<utf8proc_ssize_t>(parts.size());
    return fits && utf8proc_normalize_utf32(parts.data(), count, how) == 1
               ? static_cast<char32_t>(parts[0])
               : 0;
}

/// Where the last character of a text that is not empty begins.
std::size_t lastCharacter(TextView text) {
    std::size_t at = text.size() - 1;
    while (at > 0 && continuesCharacter(text[at])) {
        --at;
    }
    return at;
}

} // namespace

/// Of two forms that one character has, the system's choice counts.
void CodePageTable::add(std::string_view encoded, char32_t character, unsigned number) {
    const auto [place, isNew] = bytes_.try_emplace(character, encoded);
    if (!isNew) {
        std::string utf8;
        appendUtf8(utf8, character);
        place->second = platform::codePageFromUtf8(utf8, number).value_or(std::move(place->second));
    }
}

void CodePageTable::addWestern() {
    for (unsigned code = firstHigh; code < byteCount; ++code) {
        const unsigned index = code - firstHigh;
        characters_[code] = index < westernSpecials.size() ? westernSpecials[index] : code;
        bytes_.emplace(characters_[code], std::string(1, static_cast<char>(code)));
    }
}

void CodePageTable::addByte(unsigned char byte, unsigned number) {
    constexpr char32_t firstLetter = 0xA0; // controls are no letters
    const std::string alone(1, static_cast<char>(byte));
    characters_[byte] = characterOf(alone, number);
    if (characters_[byte] == replacementCharacter) {
        addPairs(byte, number);
    } else if (characters_[byte] >= firstLetter) {
        add(alone, characters_[byte], number);
    }
}

void CodePageTable::addPairs(unsigned char lead, unsigned number) {
    constexpr unsigned firstTrail = 0x40;
    for (unsigned trail = firstTrail; trail < byteCount - 1; ++trail) {
        const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
        const char32_t character = characterOf(pair, number);
        if (character != replacementCharacter) {
            pairs_.resize((byteCount - firstHigh) * byteCount);
            pairs_[pairIndex(lead, static_cast<unsigned char>(trail))] = character;
            add(pair, character, number);
        }
    }
}

void CodePageTable::correct(unsigned number) {
    for (const Correction& each : corrections) {
        if (each.codePage == number) {
            if (each.bytes.size() == 1) {
                char32_t& before = characters_[static_cast<unsigned char>(each.bytes.front())];
                bytes_.erase(before);
                before = each.character;
            }
            bytes_[each.character] = each.bytes;
        }
    }
}

/// Vietnamese has more letters than a code page has room for: it writes many of them as a letter
/// and the mark of its tone. Those that have a code of their own stay two.
void CodePageTable::addMarkedLetters() {
    for (unsigned mark = firstHigh; mark < byteCount; ++mark) {
        if (!isMark(characters_[mark])) {
            continue;
        }
        for (unsigned base = 'A'; base < byteCount; ++base) {
            const char32_t marked = composed(characters_[base], characters_[mark]);
            if (marked != 0 && !bytes_.contains(marked)) {
                bytes_[marked] = {static_cast<char>(base), static_cast<char>(mark)};
                hasMarks_ = true;
            }
        }
    }
}

/// Makes one letter of the text's last one and a mark, where the code page writes it so.
bool CodePageTable::joinMark(Text& text, char32_t mark) const {
    if (!hasMarks_ || text.empty() || !isMark(mark)) {
        return false;
    }
    const std::size_t last = lastCharacter(text);
    TextView before = TextView(text).substr(last);
    const char32_t marked = composed(takeUtf8(before), mark);
    const auto known = marked == 0 ? bytes_.end() : bytes_.find(marked);
    if (known == bytes_.end() || known->second.size() != 2) {
        return false;
    }
    text.resize(last);
    appendUtf8(text, marked);
    return true;
}

void CodePageTable::appendDecoded(Text& text, TextView& bytes) const {
    const auto lead = static_cast<unsigned char>(bytes.front());
    char32_t character = characters_[lead];
    if (character == replacementCharacter && bytes.size() > 1 && !pairs_.empty()) {
        const char32_t both = pairs_[pairIndex(lead, static_cast<unsigned char>(bytes[1]))];
        if (both != 0) {
            character = both;
            bytes.remove_prefix(1);
        }
    }
    bytes.remove_prefix(1);
    if (!joinMark(text, character)) {
        appendUtf8(text, character);
    }
}

void CodePageTable::fill(unsigned number) {
    std::iota(characters_.begin(), characters_.end(), U'\0');
    if (number == CodePage::western) {
        addWestern();
        return;
    }
    for (unsigned code = firstHigh; code < byteCount; ++code) {
        addByte(static_cast<unsigned char>(code), number);
    }
    correct(number);
    addMarkedLetters();
}

void CodePageTable::fillLetters() {
    for (std::size_t byte = 0; byte < byteCount; ++byte) {
        Text utf8;
        appendUtf8(utf8, characters_[byte]);
        letters_[byte].size = std::min(utf8.size(), letters_[byte].utf8.size());
        utf8.copy(letters_[byte].utf8.data(), letters_[byte].size);
    }
}

/// Writes the letters of bytes, each of which is one, and returns where they end. Eight bytes are
/// copied at a time, as most are ASCII: so much may be written behind that end.
char* CodePageTable::writeLetters(char* out, TextView bytes) const {
    constexpr std::uint64_t highBitOfEach = 0x8080808080808080U;
    std::uint64_t word = 0;
    while (!bytes.empty()) {
        if (bytes.size() >= sizeof word) {
            std::memcpy(&word, bytes.data(), sizeof word);
            std::memcpy(out, &word, sizeof word);
            const std::uint64_t highBits = word & highBitOfEach;
            if (highBits == 0) { // without waiting for where it ends
                out += sizeof word;
                bytes.remove_prefix(sizeof word);
                continue;
            }
            const int plainBits = std::endian::native == std::endian::little
                                      ? std::countr_zero(highBits)
                                      : std::countl_zero(highBits);
            const std::size_t plain = static_cast<std::size_t>(plainBits) / 8;
            out += plain;
            bytes.remove_prefix(plain);
        }
        const Letter& letter = letters_[static_cast<unsigned char>(bytes.front())];
        std::memcpy(out, letter.utf8.data(), letter.utf8.size());
        out += letter.size;
        bytes.remove_prefix(1);
    }
    return out;
}

Text CodePageTable::decodedSingleBytes(TextView bytes) const {
    constexpr std::size_t partSize = 4096;
    constexpr std::size_t longest = 3;
    char part[partSize * longest + sizeof(std::uint64_t)]; // not filled for nothing
    Text text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const TextView taken = bytes.substr(0, partSize);
        text.append(part, writeLetters(part, taken));
        bytes.remove_prefix(taken.size());
    }
    return text;
}

const CodePageTable& CodePageTable::of(unsigned number) {
    static std::mutex guard;
    static std::map<unsigned, CodePageTable> tables;
    const std::lock_guard lock(guard);
    const auto [place, isNew] = tables.try_emplace(number);
    if (isNew && number != platform::utf8CodePage) { // which lacks nothing
        place->second.fill(number);
        place->second.fillLetters();
    }
    return place->second;
}

} // namespace text
