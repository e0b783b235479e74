#include "import/PageHeadings.h"

#include "import/ForeignPage.h"
#include "text/HtmlReader.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr TextView madePlace = "heading-to-cut-at-";
constexpr int deepestCut = 3;

} // namespace

Text firstHeading(TextView html) {
    HtmlReader reader(html);
    std::size_t start = Text::npos;
    while (reader.next()) {
        if (text::headingLevel(reader.lowerName()) > 0 && !reader.closes()) {
            start = reader.end();
        } else if (text::headingLevel(reader.lowerName()) > 0 && start != Text::npos) {
            Text heading = plainText(html.substr(start, reader.offset() - 2 - start));
            if (!heading.empty()) {
                return heading;
            }
            start = Text::npos;
        }
    }
    return {};
}

Text withMadePlaces(TextView html) {
    Text result;
    std::size_t copied = 0;
    int count = 0;
    HtmlReader reader(html);
    while (reader.next()) {
        if (const int level = text::headingLevel(reader.lowerName());
            level > 0 && level <= deepestCut && !reader.closes()) {
            result += html.substr(copied, reader.end() - copied);
            text::append(result, "<a id='", madePlace, std::to_string(++count), "'></a>");
            copied = reader.end();
        }
    }
    return result.append(html.substr(copied));
}

bool isMadePlace(TextView name) {
    return name.starts_with(madePlace);
}

std::vector<PageHeading> madeHeadings(TextView body) {
    std::vector<PageHeading> headings;
    HtmlReader reader(body);
    PageHeading open;
    std::size_t start = Text::npos;
    while (reader.next()) {
        const int level = text::headingLevel(reader.lowerName());
        if (level > 0 && !reader.closes()) {
            open = {level, {}, {}};
            start = reader.end();
        } else if (start != Text::npos && open.place.empty() && reader.opens("a")) {
            const TextView name = reader.attribute("name").value_or(TextView());
            open.place = isMadePlace(name) ? name : TextView();
        } else if (start != Text::npos && level > 0) {
            open.text = plainText(body.substr(start, reader.offset() - 2 - start));
            if (!open.place.empty()) {
                headings.push_back(std::move(open));
            }
            open = {};
            start = Text::npos;
        }
    }
    return headings;
}

Text withoutMadePlaces(TextView body) {
    const Text start = "<a name='" + Text(madePlace);
    constexpr TextView end = "'></a>";
    Text result;
    for (std::size_t at = body.find(start); at != TextView::npos; at = body.find(start)) {
        const std::size_t behind = body.find(end, at);
        result += body.substr(0, at);
        body.remove_prefix(behind == TextView::npos ? body.size() : behind + end.size());
    }
    return result.append(body);
}

} // namespace importer
