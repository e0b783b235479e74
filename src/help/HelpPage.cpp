#include "help/HelpPage.h"

#include <algorithm>
#include <charconv>

#include "model/CodePage.h"
#include "model/HtmlReader.h"
#include "platform/Unicode.h"

namespace help {

namespace {

struct Charset {
    std::string_view name;
    unsigned codePage;
};

constexpr Charset charsets[] = {
    {"utf-8", platform::utf8CodePage},
    {"utf8", platform::utf8CodePage},
    {"iso-8859-1", 1252},
    {"iso-8859-2", 1250},
    {"iso-8859-5", 1251},
    {"iso-8859-7", 1253},
    {"iso-8859-9", 1254},
    {"iso-8859-13", 1257},
    {"iso-8859-15", 1252},
    {"koi8-r", 20866},
    {"euc-jp", 51932},
    {"shift_jis", 932},
    {"gb2312", 936},
    {"gbk", 936},
    {"gb18030", 936},
    {"ks_c_5601-1987", 949},
    {"euc-kr", 949},
    {"big5", 950},
};

/// The code page that a page names in its head; 0 for none that is known.
unsigned namedCodePage(std::string_view bytes) {
    constexpr std::size_t headSize = 2048;
    constexpr std::string_view mark = "charset";
    const model::Text head = model::lowerCase(bytes.substr(0, headSize));
    const std::size_t at = head.find(mark);
    if (at == model::Text::npos) {
        return 0;
    }
    std::string_view name = std::string_view(head).substr(at + mark.size());
    name.remove_prefix(std::min(name.find_first_not_of(" ='\""), name.size()));
    name = name.substr(0, name.find_first_of("\"' />;\r\n"));
    constexpr std::string_view windows = "windows-";
    if (name.starts_with(windows)) {
        unsigned codePage = 0;
        std::from_chars(name.data() + windows.size(), name.data() + name.size(), codePage);
        return codePage;
    }
    const auto* known = std::find_if(std::begin(charsets), std::end(charsets),
                                     [name](const Charset& each) { return each.name == name; });
    return known == std::end(charsets) ? 0 : known->codePage;
}

} // namespace

std::string decodedPage(std::string_view bytes, unsigned codePage) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
        codePage = platform::utf8CodePage;
    } else if (const unsigned named = namedCodePage(bytes); named != 0) {
        codePage = named;
    }
    return platform::utf8FromCodePage(bytes, codePage);
}

HelpPage readHelpPage(std::string_view bytes, unsigned codePage) {
    const std::string html = decodedPage(bytes, codePage);
    HelpPage page;
    std::string text;
    bool inTitle = false;
    model::HtmlReader reader(html);
    while (reader.next()) {
        if (reader.isText()) {
            (inTitle ? page.title : text) += reader.text();
            continue;
        }
        inTitle = reader.opens("title"); // there are no tags in it
        if (reader.opens("param")
            && model::equalIgnoringCase(reader.attribute("name").value_or(""), "keyword")) {
            if (const auto keyword = reader.attribute("value"); keyword && !keyword->empty()) {
                page.keywords.push_back(model::resolvedReferences(*keyword));
                model::append(text, " ", *keyword, " ");
            }
        } else if (!model::isInlineTag(reader.lowerName())) {
            text += ' ';
        }
    }
    page.title = model::resolvedReferences(page.title);
    page.text = searchable(model::resolvedReferences(text));
    return page;
}

std::string searchable(std::string_view utf8) {
    constexpr char32_t noBreakSpace = 0xA0;
    constexpr char32_t softHyphen = 0xAD;
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = model::takeUtf8(utf8);
        if (character == softHyphen) {
            continue;
        }
        if (character <= ' ' || character == noBreakSpace) {
            if (!text.empty() && text.back() != ' ') {
                text += ' ';
            }
        } else {
            model::appendUtf8(text, platform::lowerCase(character));
        }
    }
    if (text.ends_with(' ')) {
        text.pop_back();
    }
    return text;
}

} // namespace help
