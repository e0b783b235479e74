#include "editor/PastedHtml.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editor/PastedBlocks.h"
#include "text/HtmlReader.h"

namespace editor {

using text::HtmlReader;

namespace {

using Kind = PastedNode::Kind;

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

    /// The blocks of the HTML; nothing where it says no more than its text.
    std::optional<PastedNode> read() {
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
        endParagraph();
        if (!says_ && root_.children.size() < (paragraphs_ ? 2 : SIZE_MAX)) {
            return {};
        }
        return std::move(root_);
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
    static constexpr std::size_t mostBlocks = 40;

    // ---- Blocks ----

    PastedNode& block() { return *blocks_.back(); }

    void open(TextView tag) {
        PastedNode node;
        node.tag = tag;
        block().children.push_back(std::move(node));
        blocks_.push_back(&block().children.back());
        pendingBlank_ = false;
    }

    /// Ends what holds runs: only other blocks can follow.
    void endParagraph() {
        pendingBlank_ = false;
        if (!holdsRuns(block().tag)) {
            return;
        }
        PastedNode& paragraph = block();
        while (!paragraph.children.empty() && isBlankRun(paragraph.children.back())) {
            paragraph.children.pop_back();
        }
        blocks_.pop_back();
        if (paragraph.children.empty()) {
            block().children.pop_back();
        }
    }

    static bool isBlankRun(const PastedNode& run) {
        if (run.kind == Kind::lineBreak) {
            return true;
        }
        Text text = run.text;
        for (std::size_t at = 0; (at = text.find("\u00A0")) != Text::npos;) {
            text.erase(at, 2);
        }
        return run.kind == Kind::text && text.find_first_not_of(" \r\n") == Text::npos;
    }

    void closeBlocks(std::size_t left) {
        endParagraph();
        while (blocks_.size() > std::max<std::size_t>(left, 1)) {
            blocks_.pop_back();
        }
    }

    /// Opens what a block has to lie in, where the HTML has forgotten it.
    void openFrameOf(TextView tag) {
        const TextView in = block().tag;
        const bool inRow = in == "tr";
        if (in == "ul" || in == "ol") {
            if (tag != "li") {
                reopenLast("li");
            }
        } else if (tag == "li") {
            open("ul");
        }
        if ((tag == "dt" || tag == "dd") && in != "dl") {
            open("dl");
        } else if (in == "dl" && tag != "dt" && tag != "dd") {
            reopenLast("dd");
        }
        const bool isCell = tag == "td" || tag == "th";
        if ((isCell || tag == "tr" || tag == "caption") && !inRow && in != "table") {
            open("table");
        }
        if (block().is("table") && tag != "tr" && tag != "caption") {
            reopenLast("tr");
        }
        if (block().is("tr") && !isCell) {
            reopenLast("td");
        }
    }

    /// Goes on in the last block when it is such a one.
    void reopenLast(TextView tag) {
        std::vector<PastedNode>& children = block().children;
        if (!children.empty() && children.back().is(tag)) {
            blocks_.push_back(&children.back());
        } else {
            open(tag);
        }
    }

    void openBlock(TextView tag) {
        endParagraph();
        if (blocks_.size() >= mostBlocks) {
            return;
        }
        openFrameOf(tag);
        open(tag);
        says_ = true;
        if (tag == "td" || tag == "th") {
            block().columns = spanOf("colspan");
            block().rows = spanOf("rowspan");
        }
    }

    int spanOf(TextView name) const {
        const Text digits = digitsOf(reader_.attribute(name));
        return digits.empty() ? 1 : std::clamp(std::stoi(digits), 1, 1000);
    }

    // ---- Runs ----

    RunFormat formatHere() const {
        RunFormat format = format_;
        const TextView in = blocks_.back()->tag;
        if (in.starts_with('h') || inHeaderCell()) {
            format.bold = false;
        }
        format.code = format.code && in != "pre";
        return format;
    }

    bool inHeaderCell() const {
        return std::any_of(blocks_.begin(), blocks_.end(),
                           [](const PastedNode* block) { return block->is("th"); });
    }

    void addRun(PastedNode run) {
        if (!holdsRuns(block().tag)) {
            openFrameOf("p");
            open("p");
        }
        run.format = formatHere();
        std::vector<PastedNode>& runs = block().children;
        const bool follows = !runs.empty() && runs.back().kind == Kind::text;
        if (std::exchange(pendingBlank_, false) && !runs.empty()
            && runs.back().kind != Kind::lineBreak) {
            if (follows && runs.back().format == run.format) {
                runs.back().text += ' ';
            } else {
                PastedNode blank;
                blank.kind = Kind::text;
                blank.text = " ";
                blank.format = common(runs.back().format, run.format);
                runs.push_back(std::move(blank));
            }
        }
        says_ = says_ || run.format != RunFormat() || run.kind == Kind::picture;
        if (follows && run.kind == Kind::text && runs.back().format == run.format) {
            runs.back().text += run.text;
        } else {
            runs.push_back(std::move(run));
        }
    }

    /// How a blank between two runs looks.
    static RunFormat common(const RunFormat& a, const RunFormat& b) {
        return {a.link == b.link ? a.link : Text(),
                a.bold && b.bold,
                a.italic && b.italic,
                a.underlined && b.underlined,
                a.code && b.code,
                a.lowered && b.lowered,
                a.raised && b.raised};
    }

    void addText(Text text) {
        if (!text.empty()) {
            PastedNode run;
            run.kind = Kind::text;
            run.text = std::move(text);
            addRun(std::move(run));
        }
    }

    void takeText() {
        if (!hidden_.empty()) {
            return;
        }
        const Text text = text::resolvedReferences(reader_.text());
        if (block().is("pre")) {
            addLines(text);
            return;
        }
        Text word;
        for (const char character : text) {
            const bool blank = static_cast<unsigned char>(character) <= ' ';
            if (!blank) {
                word += character;
            } else if (!word.empty() || !pendingBlank_) {
                addText(std::exchange(word, {}));
                pendingBlank_ = true;
            }
        }
        if (convertedBlank_ && word == "\u00A0") {
            pendingBlank_ = true;
        } else {
            addText(word);
        }
    }

    void addLines(TextView text) {
        Text lines;
        for (const char character : text) {
            if (character == '\n') {
                lines += text::lineBreak;
            } else if (character == '\t' || static_cast<unsigned char>(character) >= ' ') {
                lines += character;
            }
        }
        if (block().children.empty() && lines.starts_with(text::lineBreak)) {
            lines.erase(0, text::lineBreak.size());
        }
        addText(std::move(lines));
    }

    void addLineBreak() {
        std::vector<PastedNode>& runs = block().children;
        if (block().is("pre")) {
            addLines("\n");
        } else if (!holdsRuns(block().tag) || runs.empty()) {
            return;
        } else if (runs.back().kind == Kind::lineBreak) {
            endParagraph();
        } else {
            pendingBlank_ = false;
            PastedNode run;
            run.kind = Kind::lineBreak;
            addRun(std::move(run));
        }
    }

    void addPicture() {
        const Text address = resolved(reader_.attribute("src"));
        const Text alternative = resolved(reader_.attribute("alt"));
        if (leadsIntoNet(address)) {
            const RunFormat format = format_;
            format_.link = format.link.empty() && !alternative.empty() ? address : format.link;
            addText(alternative);
            format_ = format;
            return;
        }
        PastedNode run;
        run.kind = Kind::picture;
        run.picture = {address.empty() ? Text() : targets_.picture(address), alternative,
                       digitsOf(reader_.attribute("width")), digitsOf(reader_.attribute("height"))};
        if (run.picture.source.empty()) {
            addText(alternative);
        } else {
            addRun(std::move(run));
        }
    }

    // ---- Tags ----

    void takeTag(const Text& name) {
        if (name == "br") {
            addLineBreak();
        } else if (name == "img") {
            addPicture();
        } else if (name == "hr") {
            openBlock("hr");
            blocks_.pop_back();
        } else if (isHidden(name)) {
            hidden_ = name;
            hiddenDepth_ = 1;
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
        const Element element{name, format_, blocks_.size(), convertedBlank_};
        if (dividesText(name)) {
            endParagraph();
            paragraphs_ = paragraphs_ || name == "p";
        } else if (isBlock(name)) {
            if (!block().is("pre")) {
                openBlock(name);
            }
        } else {
            applyTag(name);
            applyStyle(reader_.attribute("style").value_or(TextView()));
        }
        if (elements_.size() < mostElements) {
            elements_.push_back(element);
            if (blocks_.size() < elements_.back().blocks) {
                elements_.back().blocks = blocks_.size();
            }
        }
    }

    void applyTag(TextView name) {
        format_.bold = format_.bold || isOneOf<2>(name, {"b", "strong"});
        format_.italic = format_.italic || isOneOf<5>(name, {"i", "em", "cite", "var", "dfn"});
        format_.underlined = format_.underlined || name == "u";
        format_.code = format_.code || isOneOf<4>(name, {"code", "tt", "kbd", "samp"});
        format_.lowered = format_.lowered || name == "sub";
        format_.raised = format_.raised || name == "sup";
        convertedBlank_ = reader_.attribute("class") == "Apple-converted-space";
        if (name == "a") {
            const Text address = resolved(reader_.attribute("href"));
            format_.link =
                leadsIntoNet(address) || address.empty() ? address : targets_.page(address);
        }
    }

    void applyStyle(TextView style) {
        if (style.empty()) {
            return;
        }
        const Text weight = property(style, "font-weight");
        if (!weight.empty()) {
            format_.bold = weight.starts_with("bold") || (weight >= "600" && weight <= "999");
        }
        const Text slant = property(style, "font-style");
        if (!slant.empty()) {
            format_.italic = slant.starts_with("italic") || slant.starts_with("oblique");
        }
        const Text height = property(style, "vertical-align");
        format_.raised = format_.raised || height == "super";
        format_.lowered = format_.lowered || height == "sub";
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
            endParagraph();
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
            closeBlocks(element.blocks);
        }
        format_ = element.format;
        convertedBlank_ = element.convertedBlank;
    }

    HtmlReader reader_;
    PasteTargets& targets_;
    PastedNode root_;
    std::vector<PastedNode*> blocks_{&root_}; ///< open ones, each the last child of the one before
    std::vector<Element> elements_;
    RunFormat format_;
    Text hidden_; ///< the element that is passed over; empty for none
    int hiddenDepth_ = 0;
    bool pendingBlank_ = false;
    bool convertedBlank_ = false; ///< the browser has made a non-breaking space of a blank
    bool paragraphs_ = false;     ///< there are tags of paragraphs
    bool says_ = false;           ///< there is more than text
};

} // namespace

std::optional<Text> pastedMarkUp(TextView html, PasteTargets& targets) {
    const std::optional<PastedNode> root = PasteReader(html, targets).read();
    if (!root || root->children.empty()) {
        return {};
    }
    return markUpOf(*root);
}

} // namespace editor
