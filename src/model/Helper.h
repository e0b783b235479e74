#pragma once

#include <filesystem>

#include "text/Text.h"

/// Small operations on the texts of a topic that many commands share.
namespace model {

/// A page's file name, without extension, made from a title: characters that file systems refuse
/// are removed or replaced, and so are runs of blanks. "Filename" when nothing is left.
text::Text makeFileName(text::TextView title);

/// Without the references ("&#1055;") that stand for characters outside the code page: in a page's
/// name they would be taken for those characters, which it cannot hold. All others stay.
text::Text withoutForeignReferences(text::TextView text);

/// A context string made from a title: "IDH_OPEN_A_FILE".
text::Text makeContextId(text::TextView title);

/// A text as it stands in a project file: without the blanks around it and, where it would
/// otherwise not be read back as one field, in double quotes. Its own double quotes become
/// apostrophes.
text::Text quoteField(text::TextView text);

/// The same, appended to `file`.
void appendQuotedField(text::Text& file, text::TextView text);

/// A text as it comes back after it was saved: without the blanks around it, and with apostrophes
/// in place of double quotes.
text::Text asSaved(text::TextView text);

/// Every character above code 127 becomes a blank; then the blanks around the text go.
text::Text stripHighChars(text::TextView text);

/// Whether there are only the letters A to Z in either case; true for the empty text.
bool isAllLetters(text::TextView text);

/// Whether a path names an existing file. A folder is none.
bool fileExists(const std::filesystem::path& path);

} // namespace model
