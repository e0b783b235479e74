#pragma once

#include "editor/Passage.h"

/// Passages written as texts.
namespace test {

/// A passage written with "[" and "]" around the selection, or "|" at the caret.
inline editor::Passage at(editor::Text marked) {
    editor::Passage passage;
    if (const auto caret = marked.find('|'); caret != editor::Text::npos) {
        marked.erase(caret, 1);
        return {marked, caret, 0};
    }
    passage.start = marked.find('[');
    marked.erase(passage.start, 1);
    const auto end = marked.find(']');
    marked.erase(end, 1);
    passage.length = end - passage.start;
    passage.text = std::move(marked);
    return passage;
}

/// The same the other way round.
inline editor::Text marked(editor::Passage passage) {
    if (passage.length == 0) {
        return passage.text.insert(passage.start, "|");
    }
    return passage.text.insert(passage.end(), "]").insert(passage.start, "[");
}

} // namespace test
