#include "book/StrictMarkup.h"

#include <algorithm>
#include <iterator>

#include "book/ImageMaps.h"
#include "book/StrictAttributes.h"
#include "book/StrictBlocks.h"
#include "text/HtmlReader.h"

namespace book {

using text::append;
using text::HtmlReader;
using text::Text;
using text::TextView;
using enum ElementKind;

namespace {

bool isBlank(TextView text) {
    return text.find_first_not_of(text::whiteSpace) == TextView::npos;
}

/// Reads the mark-up, and says which block comes next.
class Strict : StrictBlocks {
public:
    /// `root` is what the mark-up stands in.
    Strict(TextView html, MarkupPlaces& places, ElementKind root)
        : StrictBlocks(root, 4 * html.size() + 10'000), reader_(html), places_(places), maps_(html),
          isWords_(root == heading) {
        out_.reserve(html.size() + html.size() / 4);
    }

    Text make() {
        while (reader_.next()) {
            if (reader_.isText()) {
                if (!inTitle_) {
                    addText(reader_.text());
                }
                inTitle_ = false;
                continue;
            }
            const Text tag = reader_.lowerName();
            inTitle_ = tag == "title" && !reader_.closes();
            const MarkupElement* element = findElement(tag);
            if (!reader_.closes()) {
                noteNames();
            }
            if (element == nullptr) {
                continue;
            }
            if (reader_.closes()) {
                close(*element);
            } else {
                open(*element);
            }
        }
        closeTo(0);
        writeNames();
        phrases_.endAll();
        return std::move(out_);
    }

private:
    Text attributes(const MarkupElement& element) {
        Text all = strictAttributes(
            reader_, element, [this](const Text& address) { return places_.picture(address); });
        constexpr TextView codes[] = {"pre", "code", "kbd", "samp"};
        if (places_.isRightToLeft() && !reader_.attribute("dir")
            && std::find(std::begin(codes), std::end(codes), element.strictTag)
                   != std::end(codes)) {
            all += " dir=\"auto\"";
        }
        return all;
    }

    /// Names of tags that are not written stand before the next words.
    void noteNames() {
        for (const char* attribute : {"id", "name"}) {
            const bool counts = TextView(attribute) == "id" || reader_.opens("a");
            if (const auto name = counts ? reader_.attribute(attribute) : std::nullopt) {
                if (Text id = places_.id(*name); !id.empty()) {
                    names_.push_back(std::move(id));
                }
            }
        }
    }

    void pushOwn(const MarkupElement& element) {
        const Text name = element.kind == rows ? Text() : takeName();
        push(element, name + attributes(element));
    }

    void open(const MarkupElement& element) {
        constexpr std::size_t deepest = 64;
        if (blocks_.size() > deepest && element.kind >= paragraph) {
            return;
        }
        switch (element.kind) {
        case phrase:
            openPhrase(element);
            break;
        case lineBreak:
        case picture:
            addToWords(element);
            break;
        case rule:
            if (makePlace(element)) {
                phrases_.endAll();
                append(out_, "\n<hr", takeName(), attributes(element), "/>");
            }
            break;
        case item:
            openItem(element, list, "ul");
            break;
        case term:
        case description:
            openItem(element, definitions, "dl");
            break;
        case caption:
        case rows:
        case row:
        case cell:
            openPartOfTable(element);
            break;
        default:
            openBlock(element);
        }
    }

    void openPhrase(const MarkupElement& element) {
        Text startTag = "<" + Text(element.strictTag);
        if (element.tag == "a") {
            phrases_.close("a"); // none stands in another
            const auto address = reader_.attribute("href");
            const auto target = address && !isWords_ ? places_.link(*address) : std::nullopt;
            if (!target) {
                return;
            }
            append(startTag, " href=\"", escapedAttribute(*target), "\"");
        }
        phrases_.open(element, startTag + attributes(element) + ">");
    }

    void addToWords(const MarkupElement& element) {
        beginWords();
        if (element.kind == lineBreak) {
            append(out_, "<", element.strictTag, attributes(element), "/>");
            return;
        }
        const Text alternative = text::resolvedReferences(reader_.attribute("alt").value_or(""));
        const auto address = reader_.attribute("src");
        const auto target = address ? places_.picture(*address) : std::nullopt;
        if (target) {
            const ImageMaps::Strict map =
                isWords_ ? ImageMaps::Strict() : maps_.of(reader_, places_);
            append(out_, "<img src=\"", escapedAttribute(*target), "\" alt=\"",
                   escapedAttribute(alternative), "\"", attributes(element), map.attribute, "/>",
                   map.map);
        } else {
            out_ += escapedText(alternative);
        }
    }

    void openBlock(const MarkupElement& element) {
        const bool isInWords = top().kind == heading || top().kind == paragraph;
        if (element.kind == table && innermost(caption) > 0 && isInWords) {
            makePlace(element); // what the caption holds ends first
        }
        if (element.kind == table && top().kind == caption) {
            closeTo(innermost(caption) - 1);
        }
        // Which block is the innermost is known when the paragraph before is closed.
        const auto isOfTerm = [&] { return element.kind == heading && top().kind == term; };
        if (isOfTerm() || !makePlace(element) || isOfTerm()) {
            pushUnwritten(element);
        } else {
            pushOwn(element);
        }
    }

    /// Something that stands in a list only, which is opened where there is none.
    void openItem(const MarkupElement& element, ElementKind listKind, const char* listTag) {
        const std::size_t found = innermost(listKind);
        if (found > 0 && blocks_[found - 1].isWritten) {
            closeTo(found);
        } else if (makePlace(element)) {
            pushImplied(listTag);
        } else {
            pushUnwritten(element);
            return;
        }
        if (element.kind == description) {
            addDescription();
        } else if (element.kind == term) {
            blocks_.back().lacksMeaning = true;
        }
        pushOwn(element);
    }

    /// Nothing outside of a table, and no caption behind its beginning.
    void openPartOfTable(const MarkupElement& element) {
        const std::size_t found = innermostTable();
        if (found == 0 || !blocks_[found - 1].isWritten) {
            return;
        }
        const bool isFirst = !blocks_[found - 1].hasContents;
        const bool isInHead = blocks_.size() > found && element.kind == caption;
        if (isInHead || (element.kind == caption && !isFirst)) {
            return;
        }
        // A table holds parts, these rows, and these cells: each where it can be counted on.
        const std::size_t kept = element.kind == row    ? found + 1
                                 : element.kind == cell ? found + 2
                                                        : found;
        const bool isCaptionOpen =
            blocks_.size() > found && blocks_[found].element->kind == caption;
        closeTo(isCaptionOpen ? found : kept);
        if (element.kind == row) {
            addRows();
        } else if (element.kind == cell) {
            addRow();
        }
        blocks_[found - 1].hasContents = true;
        if (element.kind == rows && element.tag == "thead" && !isFirst) {
            pushImplied("tbody");
        } else {
            pushOwn(element);
        }
    }

    void addText(TextView piece) {
        const Text resolved = text::resolvedReferences(piece);
        if (isBlank(resolved)) {
            if (holdsText(top().kind)) {
                phrases_.endOld();
                out_ += escapedText(resolved);
            }
            return;
        }
        beginWords();
        out_ += escapedText(resolved);
    }

    HtmlReader reader_;
    MarkupPlaces& places_;
    ImageMaps maps_;
    bool isWords_;
    bool inTitle_ = false;
};

} // namespace

Text strictBlocks(TextView html, MarkupPlaces& places) {
    return Strict(html, places, block).make();
}

Text strictWords(TextView html, MarkupPlaces& places) {
    return Strict(html, places, heading).make();
}

} // namespace book
