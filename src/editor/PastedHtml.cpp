#include "editor/PastedHtml.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editor/PasteBuilder.h"
#include "text/HtmlReader.h"

namespace editor {

using text::HtmlReader;

namespace {

template <std::size_t count>
bool isOneOf(TextView name, const std::array<TextView, count>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// What ends a paragraph where it begins and where it ends.
bool dividesText(TextView name) {
    return isOneOf<22>(name, {"p",      "div",     "section", "article",  "main",   "header",
                              "footer", "nav",     "aside",   "address",  "center", "figure",
                              "form",   "details", "summary", "fieldset", "hgroup", "figcaption",
                              "legend", "body",    "dir",     "menu"});
}

bool isHidden(TextView name) {
    return isOneOf<16>(name, {"head", "title", "script", "style", "noscript", "template", "object",
                              "applet", "iframe", "svg", "math", "select", "textarea", "canvas",
                              "audio", "video"});
}

bool hasNoEnd(TextView name) {
    return name.starts_with('!') || name.starts_with('?')
           || isOneOf<12>(name, {"br", "img", "hr", "input", "meta", "link", "col", "base", "wbr",
                                 "area", "embed", "param"});
}

/// Blocks that stand in the result under their own names.
bool isBlock(TextView name) {
    return isOneOf<18>(name, {"h1", "h2", "h3", "h4", "h5", "h6", "ul", "ol", "li", "dl", "dt",
                              "dd", "table", "caption", "tr", "td", "th", "pre"})
           || name == "blockquote";
}

/// The value of a property of a style, in small letters and without blanks around it.
Text property(TextView style, TextView name) {
    const Text lower = text::lowerAscii(style);
    for (TextView rest = lower; !rest.empty();) {
        const TextView part = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        const std::size_t colon = std::min(part.find(':'), part.size());
        if (text::trim(part.substr(0, colon)) == name) {
            return Text(text::trim(part.substr(std::min(colon + 1, part.size()))));
        }
    }
    return {};
}

/// A number of up to four digits at the beginning of an attribute; empty for none.
Text digitsOf(std::optional<TextView> value) {
    const TextView text = value.value_or(TextView());
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    return Text(count > 4 ? TextView() : text.substr(0, count));
}

/// Which list has items that begin like this: "1." and "a)", or a sign.
TextView listOf(TextView marker) {
    TextView sign = text::trim(marker);
    sign = sign.substr(0, sign.find_first_of(" \r\n\u00A0"));
    const bool isNumber = sign.find_first_of("0123456789") != TextView::npos;
    return isNumber || (sign.size() > 1 && (sign.ends_with('.') || sign.ends_with(')'))) ? "ol"
                                                                                         : "ul";
}

bool leadsIntoNet(TextView address) {
    constexpr TextView schemes[] = {"http://", "https://", "ftp://", "mailto:"};
    return std::any_of(std::begin(schemes), std::end(schemes), [address](TextView scheme) {
        return text::startsWithIgnoringCase(address, scheme);
    });
}

/// An attribute as it was meant, without control characters.
Text resolved(std::optional<TextView> value) {
    Text text = text::resolvedReferences(value.value_or(TextView()));
    std::erase_if(text, [](char character) { return static_cast<unsigned char>(character) < ' '; });
    return Text(text::trim(text));
}

class PasteReader {
public:
    PasteReader(TextView html, PasteTargets& targets) : reader_(html), targets_(targets) {}

    /// The blocks of the HTML.
    PastedNode read() {
        while (reader_.next()) {
            if (reader_.isText()) {
                takeText();
            } else if (!hidden_.empty()) {
                takeHidden();
            } else if (reader_.closes()) {
                close(reader_.lowerName());
            } else {
                takeTag(reader_.lowerName());
            }
        }
        return made_.take();
    }

    /// Whether what was read says more than its text.
    bool says(const PastedNode& root) const {
        return made_.says() || (paragraphs_ && root.children.size() > 1);
    }

private:
    /// An element of the HTML that is open.
    struct Element {
        Text name;
        RunFormat format = {};       ///< outside of it
        std::size_t blocks = 0;      ///< open outside of it
        bool convertedBlank = false; ///< outside of it
    };

    static constexpr std::size_t mostElements = 200;

    void takeText() {
        const Text text = text::resolvedReferences(reader_.text());
        if (!hidden_.empty()) {
            marker_ += inMarker_ ? text : Text();
            return;
        }
        if (text.find_first_not_of(" \t\r\n\f") != Text::npos) {
            beginItem();
        }
        made_.addText(text);
    }

    /// A paragraph of a word processor's list becomes an item when its first text comes: before
    /// that stands what says which kind of list it is.
    void beginItem() {
        if (listLevel_ > 0) {
            made_.openListItem(std::exchange(listLevel_, 0), listOf(marker_));
        }
    }

    int spanOf(TextView name) const {
        const Text digits = digitsOf(reader_.attribute(name));
        return digits.empty() ? 1 : std::clamp(std::stoi(digits), 1, 1000);
    }

    void addPicture() {
        beginItem();
        const Text address = resolved(reader_.attribute("src"));
        const Text alternative = resolved(reader_.attribute("alt"));
        if (leadsIntoNet(address)) {
            const RunFormat format = made_.format;
            if (format.link.empty() && !alternative.empty()) {
                made_.format.link = address;
            }
            made_.addText(alternative);
            made_.format = format;
            return;
        }
        const Text source = address.empty() ? Text() : targets_.picture(address);
        if (source.empty()) {
            made_.addText(alternative);
        } else {
            made_.addPicture({source, alternative, digitsOf(reader_.attribute("width")),
                              digitsOf(reader_.attribute("height"))});
        }
    }

    void takeTag(const Text& name) {
        if (name == "br") {
            made_.addLineBreak();
        } else if (name == "img") {
            addPicture();
        } else if (name == "hr") {
            made_.addRule();
        } else if (isHidden(name) || isOfSheet(name)) {
            hidden_ = name;
            hiddenDepth_ = 1;
        } else if (hasListMarker()) {
            hidden_ = name;
            hiddenDepth_ = 1;
            inMarker_ = true;
            marker_.clear();
        } else if (!hasNoEnd(name)) {
            closeUnclosed(name);
            begin(name);
        }
    }

    void takeHidden() {
        hiddenDepth_ += reader_.opens(hidden_) ? 1 : 0;
        hiddenDepth_ -= reader_.closes(hidden_) ? 1 : 0;
        if (hiddenDepth_ == 0 || reader_.opens("body")) { // a head without an end
            hidden_.clear();
            inMarker_ = false;
        }
    }

    Text styleOf(TextView name) const {
        return property(reader_.attribute("style").value_or(TextView()), name);
    }

    /// The number or sign before an item that a word processor has put into its text.
    bool hasListMarker() const { return styleOf("mso-list") == "ignore"; }

    /// What a word processor prints above and below every sheet.
    bool isOfSheet(TextView name) const {
        const Text title = text::lowerAscii(reader_.attribute("title").value_or(TextView()));
        return name == "div" && (title == "header" || title == "footer");
    }

    /// "mso-list: l0 level2 lfo1": how deep a paragraph lies in lists; 0 for none.
    int listLevel() const {
        constexpr TextView word = "level";
        const Text list = styleOf("mso-list");
        const std::size_t at = list.find(word);
        const char digit =
            at == Text::npos || at + word.size() >= list.size() ? '0' : list[at + word.size()];
        return digit >= '1' && digit <= '9' ? digit - '0' : 0;
    }

    void takePlaces(TextView name) {
        for (const TextView attribute : {"id", "name"}) {
            if (attribute == "id" || name == "a") {
                const Text place = resolved(reader_.attribute(attribute));
                if (!place.empty() && targets_.keepsPlace(place)) {
                    made_.addPlace(place);
                }
            }
        }
    }

    /// The ends of items, cells and the like may be missing.
    void closeUnclosed(TextView name) {
        if (name == "li") {
            closeUpTo({"li"}, {"ul", "ol"});
        } else if (name == "tr") {
            closeUpTo({"tr"}, {"table"});
        } else if (name == "td" || name == "th") {
            closeUpTo({"td", "th"}, {"tr", "table"});
        } else if (name == "dt" || name == "dd") {
            closeUpTo({"dt", "dd"}, {"dl"});
        } else if (dividesText(name) || isBlock(name)) {
            closeUpTo({"p"}, {"ul", "ol", "table", "td", "th", "li", "dl", "dd", "div"});
        }
    }

    void closeUpTo(std::initializer_list<TextView> names, std::initializer_list<TextView> limits) {
        const auto isIn = [](TextView name, std::initializer_list<TextView> list) {
            return std::find(list.begin(), list.end(), name) != list.end();
        };
        for (std::size_t i = elements_.size(); i-- > 0 && !isIn(elements_[i].name, limits);) {
            if (isIn(elements_[i].name, names)) {
                end(i);
                return;
            }
        }
    }

    void begin(const Text& name) {
        const Element element{name, made_.format, made_.blockCount(), made_.convertedBlank};
        takePlaces(name);
        if (dividesText(name)) {
            made_.endParagraph();
            paragraphs_ = paragraphs_ || name == "p";
            listLevel_ = name == "p" ? listLevel() : 0;
            marker_.clear();
        } else if (isBlock(name)) {
            if (!made_.isIn("pre")) {
                made_.openBlock(name, spanOf("colspan"), spanOf("rowspan"));
            }
        } else {
            applyTag(name);
            applyStyle(reader_.attribute("style").value_or(TextView()));
        }
        if (elements_.size() < mostElements) {
            elements_.push_back(element);
            if (made_.blockCount() < elements_.back().blocks) {
                elements_.back().blocks = made_.blockCount();
            }
        }
    }

    void applyTag(TextView name) {
        made_.format.bold = made_.format.bold || isOneOf<2>(name, {"b", "strong"});
        made_.format.italic =
            made_.format.italic || isOneOf<5>(name, {"i", "em", "cite", "var", "dfn"});
        made_.format.underlined = made_.format.underlined || name == "u";
        made_.format.struck = made_.format.struck || isOneOf<3>(name, {"s", "strike", "del"});
        made_.format.code = made_.format.code || isOneOf<4>(name, {"code", "tt", "kbd", "samp"});
        made_.format.lowered = made_.format.lowered || name == "sub";
        made_.format.raised = made_.format.raised || name == "sup";
        made_.convertedBlank = reader_.attribute("class") == "Apple-converted-space";
        if (name == "a") {
            const Text address = resolved(reader_.attribute("href"));
            made_.format.link =
                leadsIntoNet(address) || address.empty() ? address : targets_.page(address);
        }
    }

    void applyStyle(TextView style) {
        if (style.empty()) {
            return;
        }
        const Text weight = property(style, "font-weight");
        if (!weight.empty()) {
            made_.format.bold = weight.starts_with("bold") || (weight >= "600" && weight <= "999");
        }
        const Text slant = property(style, "font-style");
        if (!slant.empty()) {
            made_.format.italic = slant.starts_with("italic") || slant.starts_with("oblique");
        }
        const Text line = property(style, "text-decoration");
        made_.format.struck = made_.format.struck || line.find("line-through") != Text::npos;
        const Text height = property(style, "vertical-align");
        made_.format.raised = made_.format.raised || height == "super";
        made_.format.lowered = made_.format.lowered || height == "sub";
    }

    void close(TextView name) {
        // What a cell or an item holds does not end what it lies in, unless that is a block itself.
        const bool divides = isBlock(name) || dividesText(name);
        for (std::size_t i = elements_.size(); i-- > 0;) {
            if (elements_[i].name == name) {
                end(i);
                return;
            }
            if (!divides && isBlock(elements_[i].name)) {
                return;
            }
        }
        if (dividesText(name)) {
            made_.endParagraph();
        }
    }

    void end(std::size_t index) {
        const Element element = elements_[index];
        bool divides = false;
        for (std::size_t i = index; i < elements_.size(); ++i) {
            divides = divides || isBlock(elements_[i].name) || dividesText(elements_[i].name);
        }
        elements_.resize(index);
        if (divides) {
            made_.closeBlocks(element.blocks);
        }
        made_.format = element.format;
        made_.convertedBlank = element.convertedBlank;
    }

    HtmlReader reader_;
    PasteTargets& targets_;
    PasteBuilder made_;
    std::vector<Element> elements_;
    Text hidden_; ///< the element that is passed over; empty for none
    int hiddenDepth_ = 0;
    bool paragraphs_ = false; ///< there are tags of paragraphs
    bool inMarker_ = false;
    Text marker_;       ///< of the paragraph of a list that is open
    int listLevel_ = 0; ///< likewise, as long as it has no text
};

} // namespace

std::optional<Text> pastedMarkUp(TextView html, PasteTargets& targets) {
    PasteReader reader(html, targets);
    const PastedNode root = reader.read();
    return root.children.empty() || !reader.says(root) ? std::nullopt
                                                       : std::optional(markUpOf(root));
}

Text pageMarkUp(TextView html, PasteTargets& targets) {
    return blocksOf(PasteReader(html, targets).read());
}

} // namespace editor
