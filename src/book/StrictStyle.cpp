#include "book/StrictStyle.h"

#include <algorithm>
#include <iterator>

namespace book {

using text::Text;
using text::TextView;

namespace {

bool isNameCharacter(char character) {
    return text::isAsciiLetterOrDigit(character) || character == '-' || character == '_';
}

/// Without comments, also one that never ends.
Text withoutComments(TextView css) {
    Text plain;
    char quote = 0;
    for (std::size_t at = 0; at < css.size(); ++at) {
        const char character = css[at];
        if (quote == 0 && css.substr(at).starts_with("/*")) {
            const std::size_t end = css.find("*/", at + 2);
            if (end == TextView::npos) {
                break;
            }
            at = end + 1;
            plain += ' ';
            continue;
        }
        if (character == quote || character == '\n') {
            quote = 0;
        } else if (quote == 0 && (character == '"' || character == '\'')) {
            quote = character;
        }
        plain += character;
    }
    return plain;
}

/// Where one of `ends` stands outside of quotes and brackets; the end of the text when none does.
std::size_t findOutside(TextView css, TextView ends) {
    char quote = 0;
    int depth = 0;
    for (std::size_t at = 0; at < css.size(); ++at) {
        const char character = css[at];
        if (quote != 0) {
            quote = character == quote || character == '\n' ? '\0' : quote;
        } else if (depth <= 0 && ends.find(character) != TextView::npos) {
            return at;
        } else if (character == '"' || character == '\'') {
            quote = character;
        } else if (character == '(' || character == '[') {
            ++depth;
        } else if (character == ')' || character == ']') {
            --depth;
        }
    }
    return css.size();
}

/// Whether quotes and brackets are closed, and nothing in it could end a rule.
bool isBalanced(TextView css) {
    char quote = 0;
    Text open;
    for (const char character : css) {
        if (quote != 0) {
            if (character == '\n' || character == '\r') {
                return false;
            }
            quote = character == quote ? '\0' : quote;
        } else if (character == '"' || character == '\'') {
            quote = character;
        } else if (character == '(' || character == '[') {
            open += character == '(' ? ')' : ']';
        } else if (character == ')' || character == ']') {
            if (open.empty() || open.back() != character) {
                return false;
            }
            open.pop_back();
        }
    }
    return quote == 0 && open.empty();
}

/// What may stand in a value or in a selector, beyond letters, digits and what is not ASCII.
bool holdsOnly(TextView css, TextView others) {
    return std::all_of(css.begin(), css.end(), [others](char character) {
        return isNameCharacter(character) || static_cast<unsigned char>(character) >= 0x80U
               || others.find(character) != TextView::npos;
    });
}

/// Books have no place that does not scroll, and say which way they are written in another way.
bool hasNoPlaceInBooks(TextView property, TextView value) {
    constexpr TextView names[] = {"position", "direction", "unicode-bidi", "behavior", "filter"};
    return std::find(std::begin(names), std::end(names), property) != std::end(names)
           || value.find("expression") != TextView::npos
           || value.find("javascript") != TextView::npos;
}

/// A value with the addresses in it as they are in the book; nothing when one is not there, or the
/// value is damaged.
std::optional<Text> strictValue(TextView value, const StyleAddress& address) {
    if (value.empty() || !isBalanced(value) || !holdsOnly(value, " \t\r\n\f.,#%!+*/()'\"?=&;:@~")) {
        return {};
    }
    constexpr TextView start = "url(";
    const Text lower = text::lowerAscii(value);
    Text strict;
    std::size_t done = 0;
    while (true) {
        const std::size_t at = lower.find(start, done);
        if (at == TextView::npos) {
            return strict + Text(value.substr(done));
        }
        const std::size_t end = value.find(')', at);
        TextView named = text::trimmed(value.substr(at + start.size(), end - at - start.size()));
        if (named.size() > 1 && (named.front() == '"' || named.front() == '\'')) {
            named = named.substr(1, named.size() - 2);
        }
        const auto place = address ? address(Text(named)) : std::nullopt;
        if (end == TextView::npos || !place) {
            return {};
        }
        text::append(strict, value.substr(done, at - done), "url(\"", *place, "\")");
        done = end + 1;
    }
}

Text declarations(TextView css, const StyleAddress& address) {
    Text strict;
    while (!css.empty()) {
        const TextView one = css.substr(0, findOutside(css, ";"));
        css.remove_prefix(std::min(one.size() + 1, css.size()));
        const std::size_t colon = std::min(one.find(':'), one.size());
        const Text property = text::lowerAscii(text::trimmed(one.substr(0, colon)));
        const TextView value = text::trimmed(one.substr(std::min(colon + 1, one.size())));
        const bool isName = !property.empty() && (property[0] < '0' || property[0] > '9')
                            && property != "-"
                            && std::all_of(property.begin(), property.end(), isNameCharacter);
        if (!isName || hasNoPlaceInBooks(property, text::lowerAscii(value))) {
            continue;
        }
        if (const auto kept = strictValue(value, address)) {
            text::append(strict, strict.empty() ? "" : ";", property, ":", *kept);
        }
    }
    return strict;
}

bool isSelector(TextView selector) {
    if (selector.empty() || !isBalanced(selector)
        || !holdsOnly(selector, " \t\r\n\f.:#*,>+~[]()=\"'^$|")) {
        return false;
    }
    // Something has to stand between commas and behind the signs that lead to a name.
    const char last = selector.back();
    return TextView(".:#,>+~").find(last) == TextView::npos
           && TextView(",>+~").find(selector.front()) == TextView::npos
           && std::adjacent_find(selector.begin(), selector.end(), [](char one, char next) {
                  const TextView leading = ".#";
                  const bool leads = leading.find(one) != TextView::npos;
                  const bool named = isNameCharacter(next) && (next < '0' || next > '9');
                  return (leads && !named && static_cast<unsigned char>(next) < 0x80U)
                         || (one == ',' && next == ',');
              }) == selector.end();
}

/// Where the block that begins here ends: behind its last brace, also of one that never ends.
std::size_t blockEnd(TextView css) {
    int depth = 0;
    std::size_t at = 0;
    while (at < css.size()) {
        at += findOutside(css.substr(at), "{}");
        if (at == css.size()) {
            break;
        }
        depth += css[at++] == '{' ? 1 : -1;
        if (depth <= 0) {
            break;
        }
    }
    return at;
}

class StyleSheet {
public:
    explicit StyleSheet(const StyleAddress& address) : address_(address) {}

    void read(TextView css, bool insideMedia) {
        while (true) {
            css = text::trimmed(css);
            for (const TextView mark : {"<!--", "-->", "}"}) {
                css.remove_prefix(css.starts_with(mark) ? mark.size() : 0);
            }
            const std::size_t end = findOutside(css, "{;");
            if (end == css.size()) {
                return;
            }
            const TextView head = text::trimmed(css.substr(0, end));
            css.remove_prefix(end);
            if (css.front() == ';') { // a rule without a block
                css.remove_prefix(1);
                continue;
            }
            const TextView block = css.substr(0, blockEnd(css));
            css.remove_prefix(block.size());
            if (block.size() > 1 && block.back() == '}') {
                take(head, block.substr(1, block.size() - 2), insideMedia);
            }
        }
    }

    Text text;

private:
    void take(TextView head, TextView block, bool insideMedia) {
        constexpr TextView media = "@media";
        if (text::startsWithIgnoringCase(head, media) && !insideMedia
            && holdsOnly(head.substr(1), " ,():.") && isBalanced(head)) {
            const std::size_t before = text.size();
            text::append(text, head, " {\n");
            const std::size_t start = text.size();
            read(block, true);
            if (text.size() == start) {
                text.resize(before);
            } else {
                text += "}\n";
            }
        } else if (isSelector(head)) {
            if (const Text kept = declarations(block, address_); !kept.empty()) {
                text::append(text, head, " {", kept, "}\n");
            }
        }
    }

    const StyleAddress& address_;
};

} // namespace

Text strictDeclarations(TextView css, const StyleAddress& address) {
    return declarations(withoutComments(css), address);
}

Text strictStyleSheet(TextView css, const StyleAddress& address) {
    StyleSheet sheet(address);
    const Text plain = withoutComments(css);
    sheet.read(plain, false);
    return sheet.text;
}

} // namespace book
