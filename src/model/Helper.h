#pragma once

#include <filesystem>

#include "text/CodePage.h"

/// Small operations on the texts of a topic that many commands share.
namespace model {

/// A page's file name, without extension, made from a title: characters that file systems refuse
/// are removed or replaced, and so are runs of blanks. "Filename" when nothing is left.
text::Text makeFileName(text::TextView title);

/// Without the letters that a code page lacks: no name in the workshop's files can hold them.
text::Text withoutForeignLetters(text::TextView text, const text::CodePage& codePage);

/// Without the references ("&#x41F;") to such letters, for which they would be taken in the name of
/// a page. All others stay.
text::Text withoutForeignReferences(text::TextView text, const text::CodePage& codePage);

/// A context string made from a title: "IDH_OPEN_A_FILE". Letters that the code page lacks are left
/// out.
text::Text makeContextId(text::TextView title, const text::CodePage& codePage);

/// Appends a text as it stands in a project file of format 1, in a code page that has references
/// for letters that it lacks: without the blanks around it and, where it would otherwise not be
/// read back as one field, in double quotes. Its own double quotes become apostrophes.
void appendQuotedField(std::string& file, text::TextView text, const text::CodePage& codePage);

/// A text as it comes back after it was saved in format 1: without the blanks around it, and with
/// apostrophes in place of double quotes.
text::Text asSaved(text::TextView text);

/// Every character of the western code page above code 127 becomes a blank; then the blanks around
/// the text go.
text::Text stripHighChars(text::TextView text);

/// Whether there are only the letters A to Z in either case; true for the empty text.
bool isAllLetters(text::TextView text);

/// Whether a path names an existing file. A folder is none.
bool fileExists(const std::filesystem::path& path);

} // namespace model
