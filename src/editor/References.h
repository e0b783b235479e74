#pragma once

#include "editor/Passage.h"

/// What a topic's body takes from elsewhere: pictures, links, text files.
namespace editor {

/// How a picture is shown. Numbers are pixels.
struct GraphicOptions {
    int border = 0;
    bool aligned = false;
    Text alignment; ///< bottom, middle, top, left or right
    bool spacedHorizontally = false;
    int horizontalSpacing = 0;
    bool spacedVertically = false;
    int verticalSpacing = 0;
    Text title; ///< empty for none
};

/// The number at the beginning of what was typed, rounded to a whole one, halves to the even one;
/// 0 when there is none. Kept between -32768 and 32767.
int leadingNumber(TextView typed);

/// Puts a picture of the project's images folder in front of the selection.
Passage insertGraphic(Passage passage, TextView fileName, const GraphicOptions& options);

/// Puts a link to a page of the project in front of the selection.
Passage insertPageLink(Passage passage, TextView fileName, TextView linkText);

/// Puts a link to an address in front of the selection; without a text nothing happens.
Passage insertWebLink(Passage passage, TextView address, TextView linkText);

/// The heading that a generated page begins with; empty when there is none. It is looked for line
/// by line, in small letters only, and not in the last line.
Text headingOf(TextView page);

/// Puts the lines of a file in at the caret; the selection stays. With the caret behind the
/// first character the first line goes in front of the whole text. An empty file counts as one
/// empty line.
Passage insertFile(Passage passage, TextView file);

} // namespace editor
