#include "text/CodePage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <mutex>
#include <unordered_map>
#include <utf8proc.h>

#include "platform/Unicode.h"

namespace text {

namespace {

constexpr std::size_t byteCount = 256;
constexpr unsigned firstHigh = 0x80;

/// The western characters of the codes 128 to 159; all others are the Unicode character of the same
/// number. The systems do not agree about the five gaps, so the table is our own.
constexpr std::array<char32_t, 32> westernSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Whether an author sees more in the character than in its reference.
bool isVisible(char32_t character) {
    constexpr char32_t joiner = 0x200D; // joins pictures and letters of some scripts
    constexpr char32_t nonJoiner = 0x200C;
    if (character == joiner || character == nonJoiner) {
        return true;
    }
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_CN:
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_CS:
    case UTF8PROC_CATEGORY_CO:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
    case UTF8PROC_CATEGORY_ZS:
        return false;
    default:
        return true;
    }
}

/// A decimal reference just as encoded() writes one: nothing for every other.
struct DecimalReference {
    std::size_t length = 0;
    char32_t character = 0;
};

DecimalReference decimalReferenceAt(TextView html) {
    constexpr std::size_t mostDigits = 7;
    constexpr char32_t last = 0x10FFFF;
    if (!html.starts_with("&#") || html.size() < 4 || html[2] == '0') {
        return {};
    }
    unsigned number = 0;
    const char* first = html.data() + 2;
    const char* end = html.data() + std::min(html.size(), 2 + mostDigits);
    const auto [rest, error] = std::from_chars(first, end, number);
    if (error != std::errc() || rest == html.data() + html.size() || *rest != ';'
        || number > last) {
        return {};
    }
    return {static_cast<std::size_t>(rest - html.data()) + 1, number};
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

void appendReference(std::string& bytes, char32_t character) {
    bytes += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ';';
}

} // namespace

struct CodePage::Table {
    std::array<char32_t, byteCount> characters{};    ///< of each byte that is one alone
    std::unordered_map<char32_t, std::string> bytes; ///< beyond ASCII
    bool hasPairs = false;
    bool hasMarks = false; ///< that make letters of those before them

    void add(std::string_view encoded, char32_t character, unsigned number);
    void addPairs(unsigned char lead, unsigned number);
    void addMarkedLetters();
    void appendMarked(Text& text, unsigned char byte) const;
};

/// Of two forms that one character has, the system's choice counts.
void CodePage::Table::add(std::string_view encoded, char32_t character, unsigned number) {
    const auto [place, isNew] = bytes.try_emplace(character, encoded);
    if (!isNew) {
        std::string utf8;
        appendUtf8(utf8, character);
        place->second = platform::codePageFromUtf8(utf8, number).value_or(std::move(place->second));
    }
}

void CodePage::Table::addPairs(unsigned char lead, unsigned number) {
    constexpr unsigned firstTrail = 0x40;
    for (unsigned trail = firstTrail; trail < byteCount - 1; ++trail) {
        const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
        const std::string utf8 = platform::utf8FromCodePage(pair, number);
        std::string_view rest = utf8;
        const char32_t character = rest.empty() ? replacementCharacter : takeUtf8(rest);
        if (rest.empty() && character != replacementCharacter) {
            hasPairs = true;
            add(pair, character, number);
        }
    }
}

/// Vietnamese has more letters than a code page has room for: it writes many of them as a letter
/// and the mark of its tone. Those that have a code of their own stay two.
void CodePage::Table::addMarkedLetters() {
    for (unsigned mark = firstHigh; mark < byteCount; ++mark) {
        if (!isMark(characters[mark])) {
            continue;
        }
        for (unsigned base = 'A'; base < byteCount; ++base) {
            const char32_t marked = composed(characters[base], characters[mark]);
            if (marked != 0 && !bytes.contains(marked)) {
                bytes[marked] = {static_cast<char>(base), static_cast<char>(mark)};
                hasMarks = true;
            }
        }
    }
}

void CodePage::Table::appendMarked(Text& text, unsigned char byte) const {
    const char32_t character = characters[byte];
    if (!text.empty() && isMark(character)) {
        const std::size_t last = lastCharacter(text);
        TextView before = TextView(text).substr(last);
        const char32_t marked = composed(takeUtf8(before), character);
        const auto known = marked == 0 ? bytes.end() : bytes.find(marked);
        if (known != bytes.end() && known->second.size() == 2) {
            text.resize(last);
            appendUtf8(text, marked);
            return;
        }
    }
    appendUtf8(text, character);
}

const CodePage::Table& CodePage::tableOf(unsigned number) {
    static std::mutex guard;
    static std::map<unsigned, Table> tables;
    const std::lock_guard lock(guard);
    const auto [place, isNew] = tables.try_emplace(number);
    Table& table = place->second;
    if (!isNew) {
        return table;
    }
    for (unsigned code = 0; code < byteCount; ++code) {
        const std::string byte(1, static_cast<char>(code));
        char32_t& character = table.characters[code];
        character = code;
        if (number == western && code >= firstHigh) {
            const unsigned index = code - firstHigh;
            character = index < westernSpecials.size() ? westernSpecials[index] : code;
            table.bytes.emplace(character, byte);
        } else if (code >= firstHigh) {
            const std::string utf8 = platform::utf8FromCodePage(byte, number);
            std::string_view rest = utf8;
            character = rest.empty() ? replacementCharacter : takeUtf8(rest);
            if (character == replacementCharacter) {
                table.addPairs(static_cast<unsigned char>(code), number);
            } else if (character >= 0xA0) { // controls are no letters
                table.add(byte, character, number);
            }
        }
    }
    table.addMarkedLetters();
    return table;
}

CodePage::CodePage(unsigned number) : table_(&tableOf(number)), number_(number) {}

bool CodePage::has(char32_t character) const {
    return character < firstHigh || number_ == platform::utf8CodePage
           || table_->bytes.contains(character);
}

bool CodePage::hasAll(TextView text) const {
    while (!text.empty()) {
        if (!has(takeUtf8(text))) {
            return false;
        }
    }
    return true;
}

Text CodePage::decoded(TextView bytes) const {
    std::size_t plain = asciiLength(bytes);
    if (plain == bytes.size()) {
        return Text(bytes);
    }
    if (table_->hasPairs || number_ == platform::utf8CodePage) {
        return platform::utf8FromCodePage(bytes, number_);
    }
    Text text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        text.append(bytes.data(), plain);
        bytes.remove_prefix(plain);
        for (; !bytes.empty() && (bytes.front() & 0x80) != 0; bytes.remove_prefix(1)) {
            const auto byte = static_cast<unsigned char>(bytes.front());
            if (table_->hasMarks) {
                table_->appendMarked(text, byte);
            } else {
                appendUtf8(text, table_->characters[byte]);
            }
        }
        plain = asciiLength(bytes);
    }
    return text;
}

void CodePage::appendEncoded(std::string& bytes, TextView text, Missing missing) const {
    if (number_ == platform::utf8CodePage) {
        bytes += text;
        return;
    }
    while (!text.empty()) {
        const std::size_t plain = asciiLength(text);
        bytes += text.substr(0, plain);
        text.remove_prefix(plain);
        while (!text.empty() && (text.front() & 0x80) != 0) {
            const char32_t character = takeUtf8(text);
            if (isLatin(character)) {
                bytes += static_cast<char>(character);
            } else if (const auto known = table_->bytes.find(character);
                       known != table_->bytes.end()) {
                bytes += known->second;
            } else if (missing == Missing::reference) {
                appendReference(bytes, character);
            } else {
                bytes += '?';
            }
        }
    }
}

Bytes CodePage::encoded(TextView text, Missing missing) const {
    Bytes bytes;
    bytes.value.reserve(text.size());
    appendEncoded(bytes.value, text, missing);
    return bytes;
}

std::size_t CodePage::encodedSize(TextView text) const {
    std::size_t size = 0;
    for (std::size_t plain = asciiLength(text); plain < text.size(); plain = asciiLength(text)) {
        size += plain;
        text.remove_prefix(plain);
        TextView rest = text;
        if (isLatin(takeUtf8(rest))) {
            ++size;
        } else {
            const TextView letter = text.substr(0, text.size() - rest.size());
            size += encoded(letter, Missing::reference).value.size();
        }
        text = rest;
    }
    return size + text.size();
}

Text CodePage::withLetters(TextView html) const {
    Text text;
    text.reserve(html.size());
    for (std::size_t at = 0; at < html.size();) {
        const std::size_t sign = std::min(html.find("&#", at), html.size());
        text += html.substr(at, sign - at);
        at = sign;
        if (at == html.size()) {
            break;
        }
        const DecimalReference reference = decimalReferenceAt(html.substr(at));
        if (reference.length > 0 && !has(reference.character) && isVisible(reference.character)) {
            appendUtf8(text, reference.character);
            at += reference.length;
        } else {
            text += html[at++];
        }
    }
    return text;
}

Text CodePage::decodedHtml(TextView bytes) const {
    Text text = decoded(bytes);
    if (text.find("&#") == Text::npos) {
        return text; // without a copy
    }
    return withLetters(text);
}

} // namespace text
