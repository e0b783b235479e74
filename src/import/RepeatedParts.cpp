#include "import/RepeatedParts.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "text/HtmlReader.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr TextView blanks = " \t\r\n\f";
constexpr std::size_t fewestPages = 3;
constexpr std::size_t mostParts = 6; // at either end that are looked at
constexpr std::size_t longestNavigation = 300;
constexpr std::size_t longestShape = 2000; // what is longer is no header

bool isOneOf(TextView name, std::initializer_list<TextView> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Tags whose end is often missing, or that have none: none of them keeps an element open.
bool isOpenEnded(TextView name) {
    return isOneOf(name,
                   {"p",     "li",    "dt",    "dd",    "tr",  "td",     "th",    "option", "thead",
                    "tbody", "tfoot", "br",    "hr",    "img", "input",  "meta",  "link",   "base",
                    "area",  "col",   "param", "embed", "wbr", "source", "track", "bgsound"});
}

bool beginsPart(TextView name) {
    return !text::isInlineTag(name) || isOneOf(name, {"a", "img"});
}

/// One of the elements of which a body consists, with the text in front of it.
struct Part {
    std::size_t start = 0;
    std::size_t end = 0;
    Text shape; ///< tags with their classes
    Text text;  ///< outside of links
    Text linkTexts;
    Text root; ///< its first tag, with class and id
    int links = 0;
    bool isHeading = false;
    bool holdsPicture = false;
    bool hasName = false; ///< its first tag has a class or an id
    bool isLong = false;
};

/// What a page holds between headers and footers need not be remembered.
bool isTooLong(Part& part) {
    part.isLong =
        part.isLong || part.shape.size() + part.text.size() + part.linkTexts.size() > longestShape;
    return part.isLong;
}

void appendShape(Part& part, const HtmlReader& reader) {
    const Text name = reader.lowerName();
    Text tag = name;
    for (const TextView attribute : {"class", "id"}) {
        if (const auto value = reader.attribute(attribute); value && !reader.closes()) {
            text::append(tag, ".", *value);
            part.hasName = part.hasName || part.root.empty();
        }
    }
    if (part.root.empty()) {
        part.root = tag;
        part.isHeading = name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
    }
    if (isTooLong(part)) {
        return;
    }
    text::append(part.shape, reader.closes() ? "/" : "<", tag);
    part.links += reader.opens("a") && reader.attribute("href") ? 1 : 0;
    part.holdsPicture = part.holdsPicture || name == "img";
}

void appendCollapsed(Text& text, TextView piece) {
    for (const char character : piece) {
        if (blanks.find(character) == TextView::npos) {
            text += character;
        } else if (!text.empty() && text.back() != ' ') {
            text += ' ';
        }
    }
}

/// The parts of HTML between two offsets.
std::vector<Part> partsOf(TextView body, std::size_t from, std::size_t to) {
    std::vector<Part> parts;
    const TextView html = body.substr(from, to - from);
    HtmlReader reader(html);
    int depth = 0;
    int linkDepth = 0;
    const auto current = [&]() -> Part& {
        if (parts.empty()) {
            parts.emplace_back().start = from;
        }
        return parts.back();
    };
    while (reader.next()) {
        const std::size_t start = from + reader.offset()
                                  - (reader.isText()   ? 0
                                     : reader.closes() ? 2
                                                       : 1);
        if (reader.isText()) {
            if (!isTooLong(current())) {
                appendCollapsed(linkDepth > 0 ? current().linkTexts : current().text,
                                reader.text());
            }
            current().end = from + reader.end();
            continue;
        }
        const Text name = reader.lowerName();
        if (depth == 0 && !reader.closes() && linkDepth == 0 && beginsPart(name)
            && (parts.empty() || !parts.back().root.empty() || !parts.back().text.empty())
            && !(text::isInlineTag(name) && !parts.empty())) {
            parts.emplace_back().start = parts.size() == 1 ? from : start;
        }
        appendShape(current(), reader);
        linkDepth = name == "a" ? (reader.closes() ? 0 : 1) : linkDepth;
        if (!isOpenEnded(name) && !text::isInlineTag(name) && name.front() != '!') {
            depth = reader.closes() ? std::max(depth - 1, 0) : depth + 1;
        }
        current().end = from + reader.end();
    }
    return parts;
}

bool isBlank(const Part& part) {
    return !part.isLong && part.text.find_first_not_of(' ') == Text::npos && part.links == 0
           && !part.holdsPicture && part.linkTexts.empty();
}

/// By what parts of different pages are alike; empty for one that counts as the page's own.
std::vector<Text> signaturesOf(const Part& part) {
    std::vector<Text> signatures;
    const bool isLine = part.root == "hr";
    const TextView tag = TextView(part.root).substr(0, part.root.find('.'));
    const bool isFrame =
        isOneOf(tag, {"div", "table", "center", "nav", "header", "footer", "address", "section"});
    if (part.isLong) {
        return signatures;
    }
    if (isBlank(part)) {
        return isLine ? std::vector<Text>{"hr"} : signatures;
    }
    const bool hasOwnText = part.text.find_first_not_of(' ') != Text::npos;
    if (part.isHeading) {
        signatures.push_back(part.shape + '\n' + part.text + '\n' + part.linkTexts);
    } else if (hasOwnText || part.links > 1 || part.holdsPicture) {
        signatures.push_back(part.shape + '\n' + part.text);
    }
    if (isFrame && part.hasName && part.links > 0 && part.text.size() <= longestNavigation) {
        signatures.push_back(part.root);
    }
    return signatures;
}

/// A body in its parts; of one that is a single element, the parts of that.
std::vector<Part> outerParts(TextView body) {
    constexpr int deepest = 8;
    std::size_t from = 0;
    std::size_t to = body.size();
    for (int level = 0;; ++level) {
        std::vector<Part> parts = partsOf(body, from, to);
        const bool isWrapper =
            parts.size() == 1 && !parts.front().root.empty()
            && isOneOf(TextView(parts.front().root).substr(0, 3), {"div", "cen", "mai", "art"});
        if (!isWrapper || level == deepest) {
            return parts;
        }
        const std::size_t inner = body.find('>', from);
        const std::size_t outer = body.rfind("</", to - 1);
        if (inner == TextView::npos || outer == TextView::npos || inner + 1 >= outer
            || outer < from) {
            return parts;
        }
        from = inner + 1;
        to = outer;
    }
}

class Remover {
public:
    explicit Remover(std::vector<Text>& bodies) : bodies_(bodies) {
        for (const Text& body : bodies) {
            parts_.push_back(outerParts(body));
            count(parts_.back());
        }
    }

    std::size_t run() {
        std::size_t changed = 0;
        for (std::size_t i = 0; i < bodies_.size(); ++i) {
            changed += shorten(bodies_[i], parts_[i]) ? 1U : 0U;
        }
        return changed;
    }

private:
    void count(const std::vector<Part>& parts) {
        std::unordered_set<Text> known;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const bool isFirst = i < mostParts;
            const bool isLast = i + mostParts >= parts.size();
            for (const Text& signature :
                 isFirst || isLast ? signaturesOf(parts[i]) : std::vector<Text>()) {
                for (const char end : {'<', '>'}) {
                    if (end == '<' ? isFirst : isLast) {
                        known.insert(end + signature);
                    }
                }
            }
        }
        for (const Text& each : known) {
            ++counts_[each];
        }
    }

    /// On three of five pages that have any text.
    bool isRepeated(const Part& part, char end) const {
        const std::vector<Text> signatures = signaturesOf(part);
        return std::any_of(signatures.begin(), signatures.end(), [&](const Text& signature) {
            const auto found = counts_.find(end + signature);
            return found != counts_.end() && found->second >= fewestPages
                   && found->second * 5 >= bodies_.size() * 3;
        });
    }

    bool shorten(Text& body, const std::vector<Part>& parts) const {
        std::size_t first = 0;
        std::size_t last = parts.size();
        while (first < last && first < mostParts && isRepeated(parts[first], '<')) {
            ++first;
        }
        while (last > first && parts.size() - last < mostParts
               && (isRepeated(parts[last - 1], '>')
                   || (last < parts.size() && isBlank(parts[last - 1])
                       && parts[last - 1].root.empty()))) {
            --last;
        }
        const bool isLeft = std::any_of(parts.begin() + static_cast<std::ptrdiff_t>(first),
                                        parts.begin() + static_cast<std::ptrdiff_t>(last),
                                        [](const Part& part) { return !isBlank(part); });
        if ((first == 0 && last == parts.size()) || !isLeft) {
            return false;
        }
        const std::size_t end = parts[last - 1].end;
        body.erase(end, parts.back().end - end);
        body.erase(parts.front().start, parts[first].start - parts.front().start);
        return true;
    }

    std::vector<Text>& bodies_;
    std::vector<std::vector<Part>> parts_;
    std::unordered_map<Text, std::size_t> counts_;
};

} // namespace

std::size_t removeRepeatedParts(std::vector<Text>& bodies) {
    return bodies.size() < fewestPages ? 0 : Remover(bodies).run();
}

} // namespace importer
