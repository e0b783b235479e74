#include "help/HelpPage.h"

#include "model/CodePage.h"
#include "model/HtmlReader.h"
#include "platform/Unicode.h"
#include "workshop/Encoding.h"

namespace help {

HelpPage readHelpPage(std::string_view bytes, unsigned codePage) {
    const std::string html = workshop::decodedPage(bytes, codePage);
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
