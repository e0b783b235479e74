#pragma once

#include "text/Text.h"

namespace importer {

/// A text in Markdown as the HTML that it stands for.
struct MarkdownPage {
    text::Text title; ///< as text: of the head between "---" lines, or the first heading; or empty
    text::Text html;  ///< without that heading; mark-up of the text's own stands as it stood
};

/// Reads CommonMark, tables of lines with "|", struck text and lists with boxes. A heading has an
/// id that links on the web lead to: its words in small letters with "-" between.
MarkdownPage readMarkdown(text::TextView markdown);

/// Whether a file's name says that it is in Markdown.
bool isMarkdownName(text::TextView path);

} // namespace importer
