#include "editor/PasteBuilder.h"

#include <algorithm>
#include <utility>

namespace editor {

using Kind = PastedNode::Kind;

PastedNode PasteBuilder::take() {
    endParagraph();
    return std::move(root_);
}

// ---- Blocks ----

void PasteBuilder::open(TextView tag) {
    PastedNode node;
    node.tag = tag;
    block().children.push_back(std::move(node));
    blocks_.push_back(&block().children.back());
    pendingBlank_ = false;
}

/// Ends what holds runs: only other blocks can follow.
void PasteBuilder::endParagraph() {
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

bool PasteBuilder::isBlankRun(const PastedNode& run) {
    if (run.kind == Kind::newLine) {
        return true;
    }
    if (run.kind != Kind::text) {
        return false;
    }
    constexpr TextView hardBlank = "\u00A0";
    TextView rest = run.text;
    while (!rest.empty()) {
        const bool isHard = rest.starts_with(hardBlank);
        if (!isHard && TextView(" \r\n").find(rest.front()) == TextView::npos) {
            return false;
        }
        rest.remove_prefix(isHard ? hardBlank.size() : 1);
    }
    return true;
}

void PasteBuilder::closeBlocks(std::size_t left) {
    endParagraph();
    while (blocks_.size() > std::max<std::size_t>(left, 1)) {
        blocks_.pop_back();
    }
}

/// Opens what a block has to lie in, where the HTML has forgotten it.
void PasteBuilder::openFrameOf(TextView tag) {
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
void PasteBuilder::reopenLast(TextView tag) {
    std::vector<PastedNode>& children = block().children;
    if (!children.empty() && children.back().is(tag)) {
        blocks_.push_back(&children.back());
    } else {
        open(tag);
    }
}

void PasteBuilder::openBlock(TextView tag, int columns, int rows) {
    endParagraph();
    if (isDeep()) {
        return;
    }
    openFrameOf(tag);
    open(tag);
    says_ = true;
    if (tag == "td" || tag == "th") {
        block().columns = columns;
        block().rows = rows;
    }
}

void PasteBuilder::openListItem(int level, TextView list) {
    endParagraph();
    if (isDeep()) {
        return;
    }
    for (int depth = 1; depth < level; ++depth) {
        const std::vector<PastedNode>& children = block().children;
        const bool isOrdered = !children.empty() && children.back().is("ol");
        reopenLast(isOrdered ? "ol" : "ul");
        reopenLast("li");
    }
    reopenLast(list);
    open("li");
    says_ = true;
}

// ---- Runs ----

RunFormat PasteBuilder::formatHere() const {
    RunFormat here = format;
    const TextView in = blocks_.back()->tag;
    if (in.starts_with('h') || inHeaderCell()) {
        here.bold = false;
    }
    here.code = here.code && in != "pre";
    return here;
}

bool PasteBuilder::inHeaderCell() const {
    return std::any_of(blocks_.begin(), blocks_.end(),
                       [](const PastedNode* block) { return block->is("th"); });
}

void PasteBuilder::addRun(PastedNode run) {
    if (!holdsRuns(block().tag)) {
        openFrameOf("p");
        open("p");
    }
    run.format = formatHere();
    std::vector<PastedNode>& runs = block().children;
    const bool follows = !runs.empty() && runs.back().kind == Kind::text;
    if (std::exchange(pendingBlank_, false) && !runs.empty() && runs.back().kind != Kind::newLine) {
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
    const bool hasPlaces = !places_.empty();
    for (Text& name : std::exchange(places_, {})) {
        PastedNode place;
        place.kind = Kind::place;
        place.text = std::move(name);
        runs.push_back(std::move(place));
    }
    if (!hasPlaces && follows && run.kind == Kind::text && runs.back().format == run.format) {
        runs.back().text += run.text;
    } else {
        runs.push_back(std::move(run));
    }
}

/// How a blank between two runs looks.
RunFormat PasteBuilder::common(const RunFormat& a, const RunFormat& b) {
    return {a.link == b.link ? a.link : Text(),
            a.bold && b.bold,
            a.italic && b.italic,
            a.underlined && b.underlined,
            a.struck && b.struck,
            a.code && b.code,
            a.lowered && b.lowered,
            a.raised && b.raised};
}

void PasteBuilder::addWords(Text text) {
    if (!text.empty()) {
        PastedNode run;
        run.kind = Kind::text;
        run.text = std::move(text);
        addRun(std::move(run));
    }
}

void PasteBuilder::addText(TextView text) {
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
            addWords(std::exchange(word, {}));
            pendingBlank_ = true;
        }
    }
    if (convertedBlank && word == "\u00A0") {
        pendingBlank_ = true;
    } else {
        addWords(word);
    }
}

void PasteBuilder::addLines(TextView text) {
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
    addWords(std::move(lines));
}

void PasteBuilder::addLineBreak() {
    std::vector<PastedNode>& runs = block().children;
    if (block().is("pre")) {
        addLines("\n");
    } else if (!holdsRuns(block().tag) || runs.empty()) {
        return;
    } else if (runs.back().kind == Kind::newLine) {
        endParagraph();
    } else {
        pendingBlank_ = false;
        PastedNode run;
        run.kind = Kind::newLine;
        addRun(std::move(run));
    }
}

void PasteBuilder::addPicture(PastedPicture picture) {
    PastedNode run;
    run.kind = Kind::picture;
    run.picture = std::make_unique<PastedPicture>(std::move(picture));
    addRun(std::move(run));
}

void PasteBuilder::addRule() {
    openBlock("hr");
    if (block().is("hr")) {
        blocks_.pop_back();
    }
}

} // namespace editor
