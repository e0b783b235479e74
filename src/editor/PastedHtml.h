#pragma once

#include <optional>

#include "editor/Passage.h"

/// What browsers and word processors put on the clipboard, as mark-up that an author would write.
namespace editor {

/// Knows what of a pasted text lies in the project. Only what it names ever stands in a body; the
/// rest is left out, but for links into the net.
class PasteTargets {
public:
    virtual ~PasteTargets() = default;

    /// How a body names the picture at an address, which is a file's or holds the picture itself
    /// ("data:"); empty for none.
    virtual Text picture(TextView address) = 0;

    /// How a body names the page of the project that is meant; empty for none.
    virtual Text page(TextView address) = 0;

    /// Whether a place that links can lead to stays one, by its name.
    virtual bool keepsPlace(TextView /*name*/) { return false; }
};

/// Headings, paragraphs, lists, tables, quotations, links, pictures, code, bold, italic,
/// underlined, struck, raised and lowered text, well-formed and with no word of how it looked
/// elsewhere. Pictures in the net become links to them, or nothing where they have no text. Nothing
/// where the HTML says no more than its plain text does.
std::optional<Text> pastedMarkUp(TextView html, PasteTargets& targets);

/// The same of a whole page, whatever it says: there is no text in a line without tags around it.
Text pageMarkUp(TextView html, PasteTargets& targets);

} // namespace editor
