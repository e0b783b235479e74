#include "text/HtmlReader.h"

#include <algorithm>
#include <array>

#include "text/CharacterReferences.h"
#include "text/CodePage.h"

namespace text {

namespace {

constexpr TextView commentStart = "<!--";
constexpr TextView commentEnd = "-->";

/// What ends the name of a tag.
constexpr bool endsName(char character) {
    return isWhiteSpace(character) || character == '/';
}

/// What ends the name of an attribute.
constexpr bool endsAttribute(char character) {
    return endsName(character) || character == '=';
}

/// How many characters from the first one on are none that `ends` knows. Names are short, so that
/// looking at each character is the fastest.
template <typename Ends>
std::size_t lengthUntil(TextView text, Ends ends) {
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), ends) - text.begin());
}

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

} // namespace

bool isInlineTag(TextView lowerName) {
    constexpr std::array<TextView, 15> names = {"a",    "abbr",   "acronym", "b",   "big",
                                                "em",   "font",   "i",       "s",   "small",
                                                "span", "strong", "sub",     "sup", "u"};
    return std::find(names.begin(), names.end(), lowerName) != names.end();
}

int headingLevel(TextView lowerName) {
    const bool isHeading =
        lowerName.size() == 2 && lowerName[0] == 'h' && lowerName[1] >= '1' && lowerName[1] <= '6';
    return isHeading ? lowerName[1] - '0' : 0;
}

std::size_t TagEnds::of(std::size_t start) {
    if (nextEnd_ <= start) {
        nextEnd_ = std::min(text_.find('>', start), text_.size());
    }
    if (nextEnd_ == text_.size()) {
        return TextView::npos;
    }
    char before = 0; // the last character that is no blank
    for (std::size_t i = start; i < text_.size(); ++i) {
        const char character = text_[i];
        if (character == '>') {
            return i;
        }
        if (before == '=' && (character == '"' || character == '\'')) {
            i = quoteEnd(i);
        }
        before = isWhiteSpace(character) ? before : text_[i];
    }
    missingQuotes_ = "\"'"; // quotes are out of step from here on
    return nextEnd_;
}

/// Where the quote that opens here is closed; here, when it never is.
std::size_t TagEnds::quoteEnd(std::size_t quote) {
    const char sign = text_[quote];
    if (missingQuotes_.find(sign) != Text::npos) {
        return quote;
    }
    const std::size_t end = text_.find(sign, quote + 1);
    if (end == TextView::npos) {
        missingQuotes_ += sign;
        return quote;
    }
    return end;
}

bool HtmlReader::next() {
    while (position_ < html_.size()) {
        if (html_[position_] == '<') {
            if (html_.substr(position_).starts_with(commentStart)) {
                skipComment();
                continue;
            }
            if (takeTag()) {
                return true;
            }
        }
        const std::size_t end = std::min(html_.find('<', position_ + 1), html_.size());
        piece_ = html_.substr(position_, end - position_);
        name_ = {};
        closing_ = false;
        position_ = end;
        return true;
    }
    piece_ = name_ = {};
    return false;
}

/// One without an end hides its first line only.
void HtmlReader::skipComment() {
    std::size_t end = TextView::npos;
    if (!noCommentEnd_) {
        end = html_.find(commentEnd, position_ + commentStart.size());
        noCommentEnd_ = end == TextView::npos;
    }
    position_ = noCommentEnd_ ? std::min(html_.find('\n', position_), html_.size())
                              : end + commentEnd.size();
}

bool HtmlReader::takeTag() {
    const std::size_t start = position_ + 1;
    const bool closing = html_.substr(start).starts_with('/');
    const std::size_t nameStart = start + (closing ? 1 : 0);
    const char first = nameStart < html_.size() ? html_[nameStart] : '\0';
    if (!isLetter(first) && first != '!' && first != '?') {
        return false;
    }
    const std::size_t end = tagEnds_.of(position_);
    if (end == TextView::npos) {
        return false;
    }
    piece_ = html_.substr(nameStart, end - nameStart);
    name_ = piece_.substr(0, lengthUntil(piece_, endsName));
    closing_ = closing;
    position_ = end + 1;
    contents_ = {};
    for (const TextView endTag : {"</script", "</style"}) {
        if (opens(endTag.substr(2))) {
            skipContents(endTag);
        }
    }
    return true;
}

/// Without an end nothing is skipped: it may be a mistake.
void HtmlReader::skipContents(TextView endTag) {
    if (missingEndTags_.find(endTag) != Text::npos) {
        return;
    }
    for (std::size_t at = html_.find("</", position_); at != TextView::npos;
         at = html_.find("</", at + 1)) {
        if (startsWithIgnoringCase(html_.substr(at), endTag)) {
            contents_ = html_.substr(position_, at - position_);
            position_ = at;
            return;
        }
    }
    missingEndTags_ += endTag;
}

bool HtmlReader::hasName(TextView lowerName) const {
    return name_.size() == lowerName.size() && startsWithIgnoringCase(name_, lowerName);
}

namespace {

/// Takes the attributes of a tag one after the other.
class AttributeReader {
public:
    explicit AttributeReader(TextView behindName) : rest_(behindName) {}

    bool next(HtmlReader::Attribute& attribute) {
        skip(endsAttribute);
        if (rest_.empty()) {
            return false;
        }
        attribute = {take(lengthUntil(rest_, endsAttribute)), {}};
        skip(isWhiteSpace);
        if (rest_.starts_with('=')) {
            rest_.remove_prefix(1);
            skip(isWhiteSpace);
            attribute.value = takeValue();
        }
        return true;
    }

private:
    template <typename Skipped>
    void skip(Skipped skipped) {
        rest_.remove_prefix(lengthUntil(rest_, [skipped](char each) { return !skipped(each); }));
    }

    TextView take(std::size_t end) {
        const TextView taken = rest_.substr(0, end);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    TextView takeValue() {
        const char quote = rest_.empty() ? '\0' : rest_.front();
        if (quote == '"' || quote == '\'') {
            const std::size_t end = rest_.find(quote, 1);
            if (end != TextView::npos) {
                return take(end + 1).substr(1, end - 1);
            }
        }
        return take(lengthUntil(rest_, isWhiteSpace));
    }

    TextView rest_;
};

} // namespace

std::vector<HtmlReader::Attribute> HtmlReader::attributes() const {
    std::vector<Attribute> all;
    takeAttributes(all);
    return all;
}

void HtmlReader::takeAttributes(std::vector<Attribute>& all) const {
    all.clear();
    AttributeReader reader(isText() ? TextView() : piece_.substr(name_.size()));
    for (Attribute attribute; reader.next(attribute);) {
        all.push_back(attribute);
    }
}

std::optional<TextView> HtmlReader::attribute(TextView lowerName) const {
    AttributeReader reader(isText() ? TextView() : piece_.substr(name_.size()));
    for (Attribute attribute; reader.next(attribute);) {
        if (equalIgnoringCase(attribute.name, lowerName)) {
            return attribute.value.value_or(TextView());
        }
    }
    return {};
}

std::string resolvedReferences(std::string_view utf8) {
    if (utf8.find('&') == std::string_view::npos) {
        return std::string(utf8);
    }
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t next = std::min(utf8.find('&', at), utf8.size());
        text += utf8.substr(at, next - at);
        at = next;
        if (at == utf8.size()) {
            break;
        }
        const CharacterReference reference = characterReferenceAt(utf8, at);
        if (reference.length == 0 || reference.character == unknownCharacter) {
            text += utf8[at++];
        } else {
            appendUtf8(text, reference.character);
            at += reference.length;
        }
    }
    return text;
}

Text escapedHtml(TextView text) {
    Text html;
    html.reserve(text.size());
    for (const char character : text) {
        switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += character;
        }
    }
    return html;
}

} // namespace text
