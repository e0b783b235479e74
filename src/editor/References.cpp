#include "editor/References.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "editor/MarkUp.h"
#include "model/ProjectFolders.h"
#include "text/TextLines.h"
#include "text/Unicode.h"

namespace editor {

using text::append;
using text::lineBreak;

namespace {

Passage insertLink(Passage passage, TextView target, TextView linkText) {
    Text link;
    append(link, "<a href='", target, "'>", linkText, "</a>");
    return insertBefore(std::move(passage), link, link.size());
}

} // namespace

int leadingNumber(TextView typed) {
    TextView digits = text::trim(typed);
    if (digits.starts_with('+') && !digits.starts_with("+-")) {
        digits.remove_prefix(1);
    }
    const std::size_t first = digits.find_first_not_of("+-.");
    if (first == TextView::npos || digits[first] < '0' || digits[first] > '9') {
        return 0; // words such as "nan" would be numbers otherwise
    }
    double number = 0; // stays so when there is no number; the locale does not matter
    std::from_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return static_cast<int>(std::nearbyint(std::clamp(number, -32768.0, 32767.0)));
}

Passage insertGraphic(Passage passage, TextView fileName, const GraphicOptions& options) {
    Text tag;
    append(tag, model::imageTagStart, fileName, "' border=", std::to_string(options.border));
    if (options.spacedVertically) {
        append(tag, " vspace=", std::to_string(options.verticalSpacing));
    }
    if (options.spacedHorizontally) {
        append(tag, " hspace=", std::to_string(options.horizontalSpacing));
    }
    if (options.aligned) {
        append(tag, " align=", options.alignment);
    }
    if (!options.title.empty()) {
        append(tag, " title='", options.title, "'");
    }
    tag += '>';
    return insertBefore(std::move(passage), tag, tag.size());
}

Passage insertPageLink(Passage passage, TextView fileName, TextView linkText) {
    Text target = R"(..\)";
    append(target, model::pageFolderName, "\\");
    target += fileName;
    return insertLink(std::move(passage), target, linkText);
}

Passage insertWebLink(Passage passage, TextView address, TextView linkText) {
    return linkText.empty() ? passage : insertLink(std::move(passage), address, linkText);
}

Text headingOf(TextView page) {
    constexpr TextView open = "<h1>";
    constexpr TextView close = "</h1>";
    text::LineReader lines(page);
    for (TextView line; lines.next(line) && !lines.atEnd();) { // one without an end is none
        line = text::trim(line);
        if (line.starts_with(open)) {
            const std::size_t tags = open.size() + close.size();
            return Text(line.size() < tags ? TextView()
                                           : line.substr(open.size(), line.size() - tags));
        }
    }
    return {};
}

Passage insertFile(Passage passage, TextView file) {
    text::LineReader lines(file);
    TextView line;
    lines.next(line);
    const Text first = Text(line) + Text(lineBreak);
    Text rest;
    while (lines.next(line)) {
        append(rest, line, lineBreak);
    }
    const std::size_t caret = passage.start + first.size() + rest.size();
    Text& text = passage.text;
    const bool inFront =
        passage.start > 0 && text::characterCount(TextView(text).substr(0, passage.start)) == 1;
    if (inFront) {
        text.insert(passage.start, rest);
        text.insert(0, first);
    } else {
        text.insert(passage.start, first + rest);
    }
    return {std::move(text), caret};
}

} // namespace editor
