#include "import/Markdown.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "import/CommonMark.h"
#include "import/ForeignPage.h"
#include "import/MarkdownTables.h"
#include "text/HtmlReader.h"
#include "text/Path.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

/// Takes the lines "key: value" off that stand between two lines "---", and gives the title that
/// they name.
Text takeHead(TextView& markdown) {
    constexpr TextView key = "title:";
    if (!markdown.starts_with("---\n") && !markdown.starts_with("---\r\n")) {
        return {};
    }
    Text title;
    for (std::size_t at = markdown.find('\n') + 1; at < markdown.size();) {
        const std::size_t end = std::min(markdown.find('\n', at), markdown.size());
        const Text line(text::trim(text::oneLine(markdown.substr(at, end - at))));
        at = end + 1;
        if (line == "---" || line == "...") {
            markdown.remove_prefix(std::min(at, markdown.size()));
            return title;
        }
        if (text::startsWithIgnoringCase(line, key)) {
            title = text::trim(TextView(line).substr(key.size()));
            const bool isQuoted = title.size() > 1 && title.front() == title.back()
                                  && (title.front() == '"' || title.front() == '\'');
            title = isQuoted ? title.substr(1, title.size() - 2) : title;
        }
    }
    return {}; // it was a line
}

/// As web sites that show Markdown name the place of a heading.
Text placeOf(TextView heading) {
    Text place;
    for (const char character : text::lowerCase(heading)) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9')
                              || byte >= 0x80 || byte == '_' || byte == '-';
        place += isLetter ? Text(1, character) : byte == ' ' ? Text("-") : Text();
    }
    return place;
}

struct Heading {
    std::size_t start = 0; ///< of its first tag
    std::size_t inside = 0;
    std::size_t end = 0;
    Text text = {};
    Text place = {};
};

std::vector<Heading> headingsOf(const Text& html) {
    std::vector<Heading> headings;
    std::unordered_map<Text, int> places;
    HtmlReader reader(html);
    for (Heading open; reader.next();) {
        if (text::headingLevel(reader.lowerName()) == 0) {
            continue;
        }
        if (!reader.closes()) {
            open = {reader.offset() - 1, reader.end()};
        } else if (open.inside > 0) {
            open.end = reader.end();
            open.text =
                plainText(TextView(html).substr(open.inside, reader.offset() - 2 - open.inside));
            open.place = placeOf(open.text);
            if (const int before = places[open.place]++; before > 0) {
                open.place += '-' + std::to_string(before);
            }
            headings.push_back(std::exchange(open, {}));
        }
    }
    return headings;
}

} // namespace

MarkdownPage readMarkdown(TextView markdown) {
    MarkdownPage page;
    const Text named = takeHead(markdown);
    const Text html = htmlOfCommonMark(withHtmlTables(markdown));
    const std::vector<Heading> headings = headingsOf(html);
    const auto first = std::find_if(headings.begin(), headings.end(),
                                    [](const Heading& each) { return !each.text.empty(); });
    page.title = !named.empty() || first == headings.end() ? named : first->text;
    std::size_t copied = 0;
    for (auto heading = headings.begin(); heading != headings.end(); ++heading) {
        const bool isTitle = heading == first && heading->text == page.title;
        page.html += TextView(html).substr(copied, heading->start - copied);
        if (!isTitle) {
            page.html += TextView(html).substr(heading->start, heading->inside - heading->start);
        }
        text::append(page.html, "<a id='", htmlFromText(heading->place), "'></a>");
        copied = isTitle ? heading->end : heading->inside;
    }
    page.html += TextView(html).substr(copied);
    return page;
}

bool isMarkdownName(TextView path) {
    constexpr TextView endings[] = {".md", ".markdown", ".mkd", ".mdown"};
    return std::any_of(std::begin(endings), std::end(endings),
                       [path](TextView ending) { return text::hasEnding(path, ending); });
}

} // namespace importer
