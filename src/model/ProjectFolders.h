#pragma once

#include "text/Text.h"

/// What lies beside the workshop project, and how the texts of topics name it.
namespace model {

inline constexpr const char* pageFolderName = "html";
inline constexpr const char* imageFolderName = "images";

// A link to a page and a picture as the editor writes them, up to the file's name.
inline constexpr text::TextView pageLinkStart = R"(<a href='..\html\)";
inline constexpr text::TextView imageTagStart = R"(<img src='..\images\)";

// The program's own pictures; they lie in its folder, and a generation copies them.
inline constexpr const char* topicPicture = "Image.jpg"; ///< in the text of a new topic
inline constexpr const char* homePicture = "Home Button.jpg";
inline constexpr const char* previousPicture = "Prev Button.jpg";
inline constexpr const char* nextPicture = "Next Button.jpg";

} // namespace model
