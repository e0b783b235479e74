#pragma once

#include <span>

#include "generate/ProjectCheck.h"

/// Addresses in the texts of topics, and the pages to which they lead.
namespace generate {

/// Where addresses stand in mark-up.
struct AddressPlace {
    const char* tag;
    const char* attribute;
    FindingKind kind; ///< of a fault there
};

std::span<const AddressPlace> addressPlaces();

/// The protocol of an address, with one letter for a drive; empty for a relative one.
text::TextView protocolOf(text::TextView address);

/// An attribute's value as the browser understands it: without the blanks around it, references
/// resolved.
text::Text plainAddress(text::TextView value);

/// With the characters of "%20" and the like in their places, whether they stand for UTF-8, as
/// browsers write them, or for the code page of old programs.
text::Text unescapedAddress(text::TextView address);

/// A file below the page folder, by a path as it stands on a page of that folder.
text::Text pathFromPage(text::TextView pageName, text::TextView path);

/// A path that starts at the page folder, as one from the output folder without detours. It begins
/// with ".." when it leads out of there.
text::Text plainPlace(text::TextView path);

/// The place of a file that a style sheet or a page at another place names, both from the project's
/// folder; empty for an address that leads elsewhere.
text::Text placeBeside(const text::Text& place, text::TextView address);

/// The same for all paths that lead to one page.
text::Text placeKey(text::TextView path);

} // namespace generate
