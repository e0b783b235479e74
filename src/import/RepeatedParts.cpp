#include "import/RepeatedParts.h"

#include <algorithm>
#include <unordered_map>

#include "import/HelpSource.h"
#include "text/HtmlReader.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr std::size_t fewestPages = 3;
constexpr std::size_t mostParts = 6;           // that go from either end
constexpr std::size_t mostLinks = 12;          // of a line for navigation
constexpr std::size_t longestNavigation = 150; // outside of its links
constexpr std::size_t longestShape = 2000;     // what is longer is no header

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
    Text root;                 ///< its first tag, with class and id
    std::vector<Text> targets; ///< of its links: names of files in small letters
    bool isHeading = false;
    bool holdsPicture = false;
    bool holdsPlace = false; ///< that links may lead to
    bool hasName = false;    ///< its first tag has a class or an id
    bool isLong = false;
};

Text fileNameOf(TextView address) {
    address = withoutAnchor(address);
    return text::lowerCase(address.substr(address.find_last_of("/\\") + 1));
}

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
        part.isHeading = text::headingLevel(name) > 0;
    }
    if (isTooLong(part)) {
        return;
    }
    text::append(part.shape, reader.closes() ? "/" : "<", tag);
    if (const auto address = reader.opens("a") ? reader.attribute("href") : std::nullopt) {
        part.targets.push_back(fileNameOf(*address));
    }
    part.holdsPicture = part.holdsPicture || name == "img";
    part.holdsPlace =
        part.holdsPlace
        || (reader.opens("a") && (reader.attribute("name") || reader.attribute("id")));
}

void appendCollapsed(Text& text, TextView piece) {
    for (const char character : piece) {
        if (text::whiteSpace.find(character) == TextView::npos) {
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
            const bool isFirst = parts.empty();
            parts.emplace_back().start = isFirst ? from : start;
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
    return !part.isLong && part.text.find_first_not_of(' ') == Text::npos && part.targets.empty()
           && !part.holdsPicture && part.linkTexts.empty();
}

TextView tagOf(const Part& part) {
    return TextView(part.root).substr(0, part.root.find('.'));
}

bool isFrame(const Part& part) {
    return isOneOf(tagOf(part),
                   {"div", "table", "center", "nav", "header", "footer", "address", "section"});
}

/// Whether the names that a tool has given an element say that it is there to lead on.
bool isCalledNavigation(const Part& part) {
    const Text names = text::lowerAscii(part.root);
    return isFrame(part)
           && (names.find("nav") != Text::npos || names.find("footer") != Text::npos
               || names.find("breadcrumb") != Text::npos);
}

/// By what parts of different pages are alike; empty for a part that counts as the page's own.
struct Signatures {
    Text words;      ///< all that it says
    Text menu;       ///< where it leads to
    Text navigation; ///< of one that leads to the page before or behind, and differs with that
};

Signatures signaturesOf(const Part& part) {
    if (part.isLong) {
        return {};
    }
    if (isBlank(part)) {
        const bool isEmptyFrame = isFrame(part) && part.hasName;
        const bool isSign = isEmptyFrame || isOneOf(tagOf(part), {"hr", "script"});
        return {isSign && !part.holdsPlace ? part.root : Text(), {}, {}};
    }
    Signatures signatures{part.shape + '\n' + part.text + '\n' + part.linkTexts, {}, {}};
    const bool isNamed = isFrame(part) && part.hasName;
    const std::size_t links = part.targets.size();
    if (part.isHeading || links > mostLinks || part.text.size() > longestNavigation) {
        return signatures;
    }
    if (links > 0) {
        signatures.navigation = isNamed ? part.root : part.root + '\n' + part.text;
    }
    if (isCalledNavigation(part)) {
        signatures.menu = part.root;
    } else if (links > 1 && isNamed) {
        signatures.menu = part.root + '\n' + part.targets[0] + '\n' + part.targets[1];
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
    explicit Remover(std::vector<PageBody>& pages) : pages_(pages) {
        for (const PageBody& page : pages) {
            bodies_.push_back({outerParts(page.body), 0, 0});
            bodies_.back().last = bodies_.back().parts.size();
        }
    }

    std::size_t run() {
        for (const bool atStart : {true, false}) {
            for (std::size_t i = 0; i < mostParts && peel(atStart); ++i) {
            }
        }
        std::size_t changed = 0;
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            changed += shorten(pages_[i].body, bodies_[i]) ? 1U : 0U;
        }
        return changed;
    }

private:
    struct Body {
        std::vector<Part> parts;
        std::size_t first; ///< that stays
        std::size_t last;  ///< behind those that stay
    };

    /// Takes the outermost part away where most pages have one like it; false when they do not.
    bool peel(bool atStart) {
        std::unordered_map<Text, std::size_t> counts;
        for (std::size_t i = 0; i < bodies_.size(); ++i) {
            for (const Text& signature : outermost(i, atStart)) {
                ++counts[signature];
            }
        }
        bool any = false;
        for (std::size_t i = 0; i < bodies_.size(); ++i) {
            const std::vector<Text> signatures = outermost(i, atStart);
            const bool isRepeated =
                std::any_of(signatures.begin(), signatures.end(), [&](const Text& signature) {
                    const std::size_t count = counts[signature];
                    return count >= fewestPages && count * 5 >= bodies_.size() * 3;
                });
            if (isRepeated) {
                atStart ? ++bodies_[i].first : --bodies_[i].last;
                any = true;
            }
        }
        return any;
    }

    /// What the first or last part of a page can be known by. Blank ones do not count.
    std::vector<Text> outermost(std::size_t index, bool atStart) {
        Body& body = bodies_[index];
        while (!atStart && body.first < body.last && isNothing(body.parts[body.last - 1])) {
            --body.last;
        }
        if (body.first == body.last) {
            return {};
        }
        const Part& part = body.parts[atStart ? body.first : body.last - 1];
        const Signatures all = signaturesOf(part);
        std::vector<Text> signatures;
        for (const Text& each : {all.words, all.menu}) {
            if (!each.empty()) {
                signatures.push_back(each);
            }
        }
        if (!all.navigation.empty() && leadsToNeighbour(part, index)) {
            signatures.push_back("\n" + all.navigation);
        }
        return signatures;
    }

    static bool isNothing(const Part& part) { return isBlank(part) && part.root.empty(); }

    bool leadsToNeighbour(const Part& part, std::size_t index) const {
        const auto leadsTo = [&](std::size_t other) {
            return std::find(part.targets.begin(), part.targets.end(),
                             fileNameOf(pages_[other].page))
                   != part.targets.end();
        };
        return (index > 0 && leadsTo(index - 1))
               || (index + 1 < pages_.size() && leadsTo(index + 1));
    }

    static bool shorten(Text& text, const Body& body) {
        const auto& parts = body.parts;
        const bool isLeft = std::any_of(parts.begin() + static_cast<std::ptrdiff_t>(body.first),
                                        parts.begin() + static_cast<std::ptrdiff_t>(body.last),
                                        [](const Part& part) { return !isBlank(part); });
        if ((body.first == 0 && body.last == parts.size()) || !isLeft) {
            return false;
        }
        const std::size_t end = parts[body.last - 1].end;
        text.erase(end, parts.back().end - end);
        text.erase(parts.front().start, parts[body.first].start - parts.front().start);
        return true;
    }

    std::vector<PageBody>& pages_;
    std::vector<Body> bodies_;
};

} // namespace

std::size_t removeRepeatedParts(std::vector<PageBody>& pages) {
    return pages.size() < fewestPages ? 0 : Remover(pages).run();
}

} // namespace importer
