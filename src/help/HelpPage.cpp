#include "help/HelpPage.h"

#include "text/ForeignText.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace help {

HelpPage readHelpPage(std::string_view bytes, unsigned codePage) {
    const std::string html = text::decodedPage(bytes, codePage);
    HelpPage page;
    std::string text;
    bool inTitle = false;
    text::HtmlReader reader(html);
    while (reader.next()) {
        if (reader.isText()) {
            (inTitle ? page.title : text) += reader.text();
            continue;
        }
        inTitle = reader.opens("title"); // there are no tags in it
        if (reader.opens("param")
            && text::equalIgnoringCase(reader.attribute("name").value_or(""), "keyword")) {
            if (const auto keyword = reader.attribute("value"); keyword && !keyword->empty()) {
                page.keywords.push_back(text::resolvedReferences(*keyword));
                text::append(text, " ", *keyword, " ");
            }
        } else if (!text::isInlineTag(reader.lowerName())) {
            text += ' ';
        }
    }
    page.title = text::resolvedReferences(page.title);
    page.text = searchable(text::resolvedReferences(text));
    return page;
}

std::string searchable(std::string_view utf8) {
    constexpr char32_t noBreakSpace = 0xA0;
    constexpr char32_t softHyphen = 0xAD;
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = text::takeUtf8(utf8);
        if (character == softHyphen) {
            continue;
        }
        if (character <= ' ' || character == noBreakSpace) {
            if (!text.empty() && text.back() != ' ') {
                text += ' ';
            }
        } else {
            text::appendUtf8(text, text::lowerCase(character));
        }
    }
    if (text.ends_with(' ')) {
        text.pop_back();
    }
    return text;
}

} // namespace help
