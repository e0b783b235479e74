#pragma once

#include <vector>

#include "editor/Passage.h"

namespace editor {

/// The names that a body can refer to.
class KnownNames {
public:
    virtual ~KnownNames() = default;
    virtual std::vector<Text> pages() = 0;    ///< as links name them
    virtual std::vector<Text> pictures() = 0; ///< as tags name them

    /// Of a page, as a link names it; empty for the body's own.
    virtual std::vector<Text> anchors(TextView page) = 0;
};

/// What could go on at the caret.
struct Completion {
    std::vector<Text> choices; ///< empty for nothing
    int typed = 0;             ///< characters before the caret that the choice takes the place of
    bool sure = false;         ///< the first can be taken at once
};

/// Elements after "<", attributes in a tag, pages, anchors and pictures in their attributes.
/// `before` is the text before the caret, or enough of it. Right behind "<" or a blank nothing is
/// offered unless `asked`.
Completion completionAt(TextView before, KnownNames& names, bool asked);

/// The names of the places in a body that links can lead to.
std::vector<Text> anchorsIn(TextView body);

} // namespace editor
