#include "editor/PastedBlocks.h"

#include <algorithm>
#include <iterator>

#include "editor/Escapes.h"

namespace editor {

using text::append;
using text::lineBreak;

namespace {

using Kind = PastedNode::Kind;

void appendAttribute(Text& made, TextView name, TextView value) {
    append(made, " ", name, "='", escapedValue(value), "'");
}

void appendPicture(Text& made, const PastedPicture& picture) {
    made += "<img";
    appendAttribute(made, "src", picture.source);
    if (!picture.width.empty() && !picture.height.empty()) {
        appendAttribute(made, "width", picture.width);
        appendAttribute(made, "height", picture.height);
    }
    appendAttribute(made, "alt", picture.alternative);
    made += '>';
}

/// Writes runs, with as few tags as their order allows.
class RunWriter {
public:
    explicit RunWriter(Text& made) : made_(made) {}
    ~RunWriter() { change({}); }
    RunWriter(const RunWriter&) = delete;
    RunWriter& operator=(const RunWriter&) = delete;

    void write(const PastedNode& run) {
        if (run.kind == Kind::place) { // in no tag, since links may not lie in each other
            change({});
            made_ += "<a";
            appendAttribute(made_, "name", run.text);
            made_ += "></a>";
            return;
        }
        change(tagsOf(run.format));
        if (run.kind == Kind::picture) {
            appendPicture(made_, *run.picture);
        } else if (run.kind == Kind::newLine) {
            append(made_, "<br>", lineBreak);
        } else {
            made_ += escapedLetters(run.text);
        }
    }

private:
    struct Tag {
        Text open;
        TextView close;
        bool operator==(const Tag& other) const { return open == other.open; }
    };

    static std::vector<Tag> tagsOf(const RunFormat& format) {
        std::vector<Tag> tags;
        if (!format.link.empty()) {
            Text open = "<a";
            appendAttribute(open, "href", format.link);
            tags.push_back({open + ">", "</a>"});
        }
        const std::pair<bool, Tag> all[] = {
            {format.struck, {"<s>", "</s>"}},     {format.bold, {"<b>", "</b>"}},
            {format.italic, {"<i>", "</i>"}},     {format.underlined, {"<u>", "</u>"}},
            {format.code, {"<code>", "</code>"}}, {format.lowered, {"<sub>", "</sub>"}},
            {format.raised, {"<sup>", "</sup>"}},
        };
        for (const auto& [has, tag] : all) {
            if (has) {
                tags.push_back(tag);
            }
        }
        return tags;
    }

    void change(std::vector<Tag> tags) {
        const auto [kept, first] =
            std::mismatch(open_.begin(), open_.end(), tags.begin(), tags.end());
        for (auto tag = open_.end(); tag != kept;) {
            made_ += (--tag)->close;
        }
        for (auto tag = first; tag != tags.end(); ++tag) {
            made_ += tag->open;
        }
        open_ = std::move(tags);
    }

    Text& made_;
    std::vector<Tag> open_;
};

void appendRuns(Text& made, const PastedNode& parent) {
    RunWriter writer(made);
    for (const PastedNode& child : parent.children) {
        writer.write(child);
    }
}

void startLine(Text& made) {
    if (!made.empty() && !made.ends_with(lineBreak)) {
        made += lineBreak;
    }
}

void appendBlock(Text& made, const PastedNode& block);

/// A cell's or item's blocks; a paragraph that is the only one there needs no tags.
void appendContent(Text& made, const PastedNode& parent) {
    const auto isParagraph = [](const PastedNode& child) { return child.is("p"); };
    const auto count = std::count_if(parent.children.begin(), parent.children.end(), isParagraph);
    const bool bare = count == 1 && isParagraph(parent.children.front());
    for (const PastedNode& child : parent.children) {
        if (bare && isParagraph(child)) {
            appendRuns(made, child);
        } else {
            startLine(made);
            appendBlock(made, child);
        }
    }
}

Text openingTag(const PastedNode& block) {
    if (block.is("table")) {
        return Text(tableStart);
    }
    Text tag = "<" + block.tag;
    if (block.columns > 1) {
        appendAttribute(tag, "colspan", std::to_string(block.columns));
    }
    if (block.rows > 1) {
        appendAttribute(tag, "rowspan", std::to_string(block.rows));
    }
    return tag + ">";
}

/// Word processors move a list to the right with lists around it that have nothing else.
const PastedNode& withoutIndent(const PastedNode& block) {
    const auto isList = [](const PastedNode& node) { return node.is("ul") || node.is("ol"); };
    const PastedNode* list = &block;
    while (isList(*list) && list->children.size() == 1 && list->children[0].children.size() == 1
           && isList(list->children[0].children[0])) {
        list = &list->children[0].children[0];
    }
    return *list;
}

void appendBlock(Text& made, const PastedNode& given) {
    const PastedNode& block = withoutIndent(given);
    made += openingTag(block);
    if (block.is("hr")) {
        return;
    }
    if (holdsRuns(block.tag)) {
        appendRuns(made, block);
    } else {
        const bool isFrame = block.is("ul") || block.is("ol") || block.is("dl") || block.is("table")
                             || block.is("tr") || block.is("blockquote");
        if (isFrame) {
            for (const PastedNode& child : block.children) {
                startLine(made);
                appendBlock(made, child);
            }
            startLine(made);
        } else {
            appendContent(made, block);
        }
    }
    append(made, "</", block.tag, ">");
}

} // namespace

bool holdsRuns(TextView tag) {
    constexpr TextView tags[] = {"p", "h1", "h2", "h3", "h4", "h5", "h6", "pre", "caption", "dt"};
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

Text markUpOf(const PastedNode& root) {
    Text made;
    appendContent(made, root);
    return made;
}

Text blocksOf(const PastedNode& root) {
    Text made;
    for (const PastedNode& child : root.children) {
        startLine(made);
        appendBlock(made, child);
    }
    return made;
}

} // namespace editor
