#include "book/StrictMarkup.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

// The part for single texts.
namespace book {

using text::Text;
using text::TextView;

namespace {

bool isOfXml(char32_t character) {
    return character >= ' ' ? character != 0xFFFE && character != 0xFFFF
                            : character == '\t' || character == '\n';
}

Text escaped(TextView text, bool isAttribute) {
    Text out;
    out.reserve(text.size());
    while (!text.empty()) {
        const char byte = text.front();
        const char32_t character = text::takeUtf8(text);
        if (byte == '&') {
            out += "&amp;";
        } else if (byte == '<') {
            out += "&lt;";
        } else if (byte == '>') {
            out += "&gt;";
        } else if (byte == '"' && isAttribute) {
            out += "&quot;";
        } else if (isAttribute && text::whiteSpace.find(byte) != TextView::npos) {
            out += ' ';
        } else if (isOfXml(character)) {
            text::appendUtf8(out, character);
        }
    }
    return out;
}

} // namespace

Text plainWords(TextView html) {
    Text words;
    text::HtmlReader reader(html);
    while (reader.next()) {
        const Text piece = text::resolvedReferences(reader.text());
        for (const char character : piece) {
            const bool isGap = text::whiteSpace.find(character) != TextView::npos;
            if (!isGap || (!words.empty() && words.back() != ' ')) {
                words += isGap ? ' ' : character;
            }
        }
    }
    return Text(text::trim(words));
}

Text escapedText(TextView text) {
    return escaped(text, false);
}

Text escapedAttribute(TextView text) {
    return escaped(text, true);
}

} // namespace book
