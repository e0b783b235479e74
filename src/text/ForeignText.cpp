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

std::string fromCodePage(std::string_view bytes, unsigned codePage) {
    const bool isUtf8Already = codePage == platform::utf8CodePage && isUtf8(bytes);
    if (isUtf8Already || (codePage != shiftedCodePage && isAscii(bytes))) {
        return std::string(bytes);
    }
    const bool isTable = codePage != shiftedCodePage && codePage != unixJapanese;
    return isTable ? CodePage(codePage).decoded(bytes)
                   : platform::utf8FromCodePage(bytes, codePage);
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
