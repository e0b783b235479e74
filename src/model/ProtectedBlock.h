#pragma once

#include <cstdint>
#include <optional>

#include "model/ProjectFolders.h"
#include "text/CodePage.h"

/// The marked region of a generated page that holds the topic's body, so that pages edited outside
/// the program can be read back.
namespace model {

/// The first marker line goes on with the length of the content, in bytes of the written page and
/// without the line end behind it, and blockStartEnd.
inline constexpr text::TextView blockStart = "<!-- HTML Topicsmith Custom Code *Do Not Remove* [";
inline constexpr text::TextView blockStartEnd = "] -->";
inline constexpr text::TextView blockEnd = "<!-- HTML Topicsmith End Code *Do Not Remove* -->";

/// Stands in for the body of a topic that has none.
inline constexpr text::TextView placeholderBody =
    R"(<p><IMG src="..\images\Image.jpg" align=left BORDER=0> Descriptive text goes here.</p>)";
static_assert(placeholderBody.find(topicPicture) != text::TextView::npos);

/// For a page that will be written in the code page.
void appendProtectedBlock(text::Text& page, text::TextView body, const text::CodePage& codePage);

/// A block as it is found in a page.
struct ProtectedBlock {
    text::Text content;  ///< its lines, with CR LF between them, whatever the page has
    text::TextView asIs; ///< the same with the page's own line ends; a part of the page

    /// The content's length when the page was generated, from the marker; 0 when that holds none.
    std::int32_t generatedLength = 0;

    /// The end marker stands behind the beginning several times, because the text holds it itself,
    /// and none of them gives the generated length: nobody can tell where the text ends. `content`
    /// goes on to the first.
    bool endUnknown = false;

    bool hasGeneratedLength(const text::CodePage& codePage) const;
};

/// The first block of a page; nothing when there is none or its end is missing. Of several end
/// markers that one counts with which the content has the generated length.
std::optional<ProtectedBlock> findProtectedBlock(text::TextView page,
                                                 const text::CodePage& codePage);

} // namespace model
