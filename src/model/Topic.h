#pragma once

#include "model/Text.h"

namespace model {

/// One entry of the outline: one page of the help. Plain texts; who changes one through a project
/// tells the project (see Project.h).
struct Topic {
    Text level = "1"; ///< level text, see levelText()
    Text status;      ///< change status: C, N, E, S, M or empty, see Project::markChanged()
    Text title;
    Text fileName;      ///< of the generated page, with extension, in the `html` folder
    Text contextId;     ///< context string; a help call needs it and the number, or neither
    Text contextNumber; ///< as text
    Text shortDescription;
    Text image = "Auto"; ///< picture in the contents: Auto, New, Leaf or New Leaf
    Text keywords;       ///< separated by semicolons
    Text body;           ///< HTML between the page's heading and its navigation

    /// A scratch mark of running commands; never saved, and not part of what a topic is.
    Text tag;
};

bool operator==(const Topic& a, const Topic& b);

inline constexpr int maxDepth = 9;

/// How a depth of 1 to 9 is stored and shown: two full stops for each level above it, then the
/// digit ("1", "..2", "....3").
Text levelText(int depth);

/// The depth that a level text ends in; 0 when that is no digit. Nothing before it is looked at.
int levelDepth(TextView levelText);

} // namespace model
