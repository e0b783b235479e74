#include "text/ForeignText.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/Files.h"
#include "platform/Unicode.h"
#include "text/CodePage.h"

namespace text {

namespace {

constexpr unsigned westernCodePage = CodePage::western;
constexpr unsigned shiftedCodePage = 50220; // ISO-2022-JP: all its bytes look like ASCII
constexpr unsigned unixJapanese = 51932;    // EUC-JP: some of its letters have three bytes
constexpr unsigned shiftedJapanese = 932;   // Shift_JIS

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

struct Charset {
    std::string_view name;
    unsigned codePage;
};

constexpr Charset charsets[] = {
    {"utf-8", platform::utf8CodePage},
    {"utf8", platform::utf8CodePage},
    {"us-ascii", westernCodePage},
    {"iso-8859-1", westernCodePage},
    {"iso-8859-2", 28592},
    {"iso-8859-5", 28595},
    {"iso-8859-7", 28597},
    {"iso-8859-9", 1254},
    {"iso-8859-13", 1257},
    {"iso-8859-15", 28605},
    {"koi8-r", 20866},
    {"tis-620", 874},
    {"euc-jp", 51932},
    {"iso-2022-jp", shiftedCodePage},
    {"shift_jis", 932},
    {"x-sjis", 932},
    {"windows-31j", 932},
    {"gb2312", 936},
    {"gbk", 936},
    {"x-gbk", 936},
    {"gb18030", 936},
    {"ks_c_5601-1987", 949},
    {"euc-kr", 949},
    {"big5", 950},
};

unsigned codePageNamed(std::string_view name) {
    constexpr std::string_view windows = "windows-";
    const auto* known = std::find_if(std::begin(charsets), std::end(charsets),
                                     [name](const Charset& each) { return each.name == name; });
    if (known != std::end(charsets)) {
        return known->codePage;
    }
    unsigned codePage = 0;
    if (name.starts_with(windows)) {
        std::from_chars(name.data() + windows.size(), name.data() + name.size(), codePage);
    }
    return codePage;
}

/// The text behind a byte order mark; nothing where there is none.
std::optional<std::string> markedText(std::string_view bytes) {
    if (bytes.starts_with(utf8Mark)) {
        return CodePage(platform::utf8CodePage).decoded(bytes.substr(utf8Mark.size()));
    }
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return utf8FromUtf16(bytes.substr(2), bytes.front() == '\xFE');
    }
    return {};
}

/// Appends the letter of a row and cell, both from 0, as Shift_JIS spells it: two rows to a first
/// byte, with gaps for half-width letters and for one byte that is none.
void appendShifted(std::string& shifted, int row, int cell) {
    constexpr int rowsBeforeGap = 62;
    constexpr int cellsBeforeGap = 63;
    const bool isOdd = row % 2 != 0;
    shifted += static_cast<char>(row / 2 + (row < rowsBeforeGap ? 0x81 : 0xC1));
    shifted +=
        static_cast<char>(isOdd ? cell + 0x9F : cell + (cell < cellsBeforeGap ? 0x40 : 0x41));
}

/// EUC-JP, spelt as Shift_JIS for the table that is the same on all systems. Theirs disagree about
/// dashes, tildes and signs of currencies.
std::string fromUnixJapanese(std::string_view bytes) {
    constexpr unsigned char first = 0xA1; // of the letters in rows and cells
    constexpr unsigned char last = 0xFE;
    constexpr unsigned char lastKatakana = 0xDF;
    constexpr char beforeKatakana = '\x8E';
    constexpr char beforeRare = '\x8F'; // letters that Shift_JIS lacks
    std::string decoded;
    std::string shifted;
    const auto isWithin = [bytes](std::size_t at, unsigned char end) {
        const auto byte = at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
        return byte >= first && byte <= end;
    };
    const auto appendDecoded = [&decoded, &shifted] {
        decoded += CodePage(shiftedJapanese).decoded(shifted);
        shifted.clear();
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (isAscii(bytes.substr(i, 1))) {
            shifted += bytes[i];
        } else if (bytes[i] == beforeKatakana && isWithin(i + 1, lastKatakana)) {
            shifted += bytes[++i];
        } else if (bytes[i] == beforeRare && isWithin(i + 1, last) && isWithin(i + 2, last)) {
            appendDecoded();
            decoded += platform::utf8FromCodePage(bytes.substr(i, 3), unixJapanese);
            i += 2;
        } else if (isWithin(i, last) && isWithin(i + 1, last)) {
            appendShifted(shifted, static_cast<unsigned char>(bytes[i]) - first,
                          static_cast<unsigned char>(bytes[i + 1]) - first);
            ++i;
        } else {
            appendDecoded();
            decoded += "\uFFFD";
        }
    }
    appendDecoded();
    return decoded;
}

std::string fromCodePage(std::string_view bytes, unsigned codePage) {
    const bool isUtf8Already = codePage == platform::utf8CodePage && isUtf8(bytes);
    if (isUtf8Already || (codePage != shiftedCodePage && isAscii(bytes))) {
        return std::string(bytes);
    }
    return codePage == unixJapanese      ? fromUnixJapanese(bytes)
           : codePage == shiftedCodePage ? platform::utf8FromCodePage(bytes, codePage)
                                         : CodePage(codePage).decoded(bytes);
}

} // namespace

unsigned declaredCodePage(std::string_view bytes) {
    constexpr std::size_t headSize = 2048;
    const Text head = lowerAscii(bytes.substr(0, headSize));
    constexpr std::string_view xml = "<?xml";
    for (const std::string_view mark : {"charset", "encoding"}) {
        const std::size_t at = head.find(mark);
        if (at == Text::npos || (mark == "encoding" && !head.starts_with(xml))) {
            continue;
        }
        std::string_view name = std::string_view(head).substr(at + mark.size());
        name.remove_prefix(std::min(name.find_first_not_of(" ='\""), name.size()));
        return codePageNamed(name.substr(0, name.find_first_of("\"' />;?\r\n")));
    }
    return 0;
}

std::string decodedPage(std::string_view bytes, unsigned codePage) {
    if (auto text = markedText(bytes)) {
        return *text;
    }
    const unsigned named = declaredCodePage(bytes);
    return fromCodePage(bytes, named == 0 ? codePage : named);
}

SourceText decodedSource(std::string_view bytes, unsigned codePage) {
    if (auto text = markedText(bytes)) {
        return {*text, true};
    }
    if (!isAscii(bytes) && isUtf8(bytes)) {
        return {std::string(bytes), true};
    }
    return {fromCodePage(bytes, codePage), false};
}

std::string decodedForeignPage(std::string_view bytes, unsigned codePage) {
    const bool isDeclared = markedText(bytes) || declaredCodePage(bytes) != 0;
    return isDeclared ? decodedPage(bytes, codePage) : decodedSource(bytes, codePage).utf8;
}

std::error_code readTextFile(const std::filesystem::path& path, unsigned codePage, Text& text) {
    std::string bytes;
    const std::error_code error = platform::readFile(path, bytes);
    text = decodedSource(bytes, codePage).utf8;
    return error;
}

} // namespace text
