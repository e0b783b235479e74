#pragma once

#include "model/Text.h"

/// The marked region of a generated page that holds the topic's body, so that pages edited outside
/// the program can be read back.
namespace generate {

/// The first marker line goes on with the length of the content, in characters and without the line
/// end behind it, and blockStartEnd.
inline constexpr model::TextView blockStart = "<!-- HTML Topicsmith Custom Code *Do Not Remove* [";
inline constexpr model::TextView blockStartEnd = "] -->";
inline constexpr model::TextView blockEnd = "<!-- HTML Topicsmith End Code *Do Not Remove* -->";

/// Stands in for the body of a topic that has none.
inline constexpr model::TextView placeholderBody =
    R"(<p><IMG src="..\images\Image.jpg" align=left BORDER=0> Descriptive text goes here.</p>)";

void appendProtectedBlock(model::Text& page, model::TextView body);

} // namespace generate
