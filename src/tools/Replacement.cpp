#include "tools/Replacement.h"

#include <algorithm>
#include <utility>

namespace tools {

namespace {

constexpr TextView digits = "0123456789";

/// The name of the group to which a text behind "$" refers, and how long that is with its braces.
struct GroupName {
    TextView name;
    std::size_t length = 0;
};

GroupName groupNameAt(TextView text) {
    if (text.starts_with('{')) {
        const std::size_t end = text.find('}');
        return end == TextView::npos ? GroupName{} : GroupName{text.substr(1, end - 1), end + 1};
    }
    const std::size_t length = std::min(text.find_first_not_of(digits), text.size());
    return {text.substr(0, length), length};
}

/// What a character behind a backslash stands for.
Text escaped(char character) {
    switch (character) {
    case 'n':
        return Text(text::lineBreak);
    case 't':
        return "\t";
    default:
        return Text(1, character);
    }
}

} // namespace

std::optional<Replacement> Replacement::forExpression(TextView text, const TextPattern& pattern,
                                                      Text& problem) {
    Replacement made;
    Text plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const TextView rest = text.substr(i + 1);
        if (text[i] == '\\' && !rest.empty()) {
            plain += escaped(rest.front());
            ++i;
        } else if (text[i] == '$' && rest.starts_with('$')) {
            plain += '$';
            ++i;
        } else if (const GroupName name = text[i] == '$' ? groupNameAt(rest) : GroupName();
                   name.length > 0) {
            const auto group = pattern.group(name.name);
            if (!group) {
                problem = "the expression has no group " + Text(name.name);
                return {};
            }
            made.pieces_.push_back({std::exchange(plain, {}), {}});
            made.pieces_.push_back({{}, group});
            i += name.length;
        } else {
            plain += text[i];
        }
    }
    made.pieces_.push_back({plain, {}});
    return made;
}

Text Replacement::madeFor(const PatternSearch& match) const {
    Text text;
    for (const Piece& piece : pieces_) {
        text += piece.group ? match.group(*piece.group) : TextView(piece.text);
    }
    return text;
}

} // namespace tools
