#pragma once

#include "text/Text.h"

namespace model {

/// One entry of the outline: one page of the help. Plain texts; who changes one through a project
/// tells the project (see Project.h).
struct Topic {
    text::Text level = "1"; ///< level text, see levelText()
    text::Text status;      ///< change status: C, N, E, S, M or empty, see Project::markChanged()
    text::Text title;
    text::Text fileName;      ///< of the generated page, with extension, in the `html` folder
    text::Text contextId;     ///< context string; a help call needs it and the number, or neither
    text::Text contextNumber; ///< as text
    text::Text shortDescription;
    text::Text image = "Auto"; ///< picture in the contents: Auto, New, Leaf or New Leaf
    text::Text keywords;       ///< separated by semicolons
    text::Text body;           ///< HTML between the page's heading and its navigation

    /// A scratch mark of running commands; never saved, and not part of what a topic is.
    text::Text tag;
};

bool operator==(const Topic& a, const Topic& b);

inline constexpr int maxDepth = 9;

/// How a depth of 1 to 9 is stored and shown: two full stops for each level above it, then the
/// digit ("1", "..2", "....3").
text::Text levelText(int depth);

/// The depth that a level text ends in; 0 when that is no digit. Nothing before it is looked at.
int levelDepth(text::TextView levelText);

} // namespace model
