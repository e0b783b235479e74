#include "editor/Escapes.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

namespace editor {

namespace {

using Reference = std::pair<TextView, TextView>;

constexpr Reference references[] = {{"&", "&amp;"},   {"<", "&lt;"},        {">", "&gt;"},
                                    {"\"", "&quot;"}, {"\u00A0", "&nbsp;"}, {"'", "&#39;"}};

Text escaped(TextView text, std::size_t kinds) {
    const std::span<const Reference> wanted(references, kinds);
    Text made;
    made.reserve(text.size());
    while (!text.empty()) {
        const auto found =
            std::find_if(wanted.begin(), wanted.end(), [text](const Reference& reference) {
                return text.starts_with(reference.first);
            });
        const bool none = found == wanted.end();
        made += none ? text.substr(0, 1) : found->second;
        text.remove_prefix(none ? 1 : found->first.size());
    }
    return made;
}

} // namespace

Text escapedText(TextView text) {
    return escaped(text, 3);
}

Text escapedLetters(TextView text) {
    return escaped(text, 5);
}

Text escapedValue(TextView text) {
    return escaped(text, std::size(references));
}

} // namespace editor
