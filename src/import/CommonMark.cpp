#include "import/CommonMark.h"

#include <algorithm>
#include <cmark.h>
#include <cstdlib>
#include <memory>
#include <unordered_set>
#include <vector>

namespace importer {

using text::Text;
using text::TextView;

namespace {

constexpr TextView strike = "~~";

TextView literalOf(cmark_node* node) {
    const char* literal = cmark_node_get_literal(node);
    return literal == nullptr ? TextView() : TextView(literal);
}

bool isText(cmark_node* node) {
    return node != nullptr && cmark_node_get_type(node) == CMARK_NODE_TEXT;
}

/// A box that nobody can tick in a help is a letter.
void replaceBox(cmark_node* item) {
    cmark_node* paragraph = cmark_node_first_child(item);
    cmark_node* first = paragraph == nullptr ? nullptr : cmark_node_first_child(paragraph);
    if (!isText(first) || cmark_node_get_type(paragraph) != CMARK_NODE_PARAGRAPH) {
        return;
    }
    const TextView text = literalOf(first);
    const bool isOpen = text.starts_with("[ ] ");
    if (isOpen || text.starts_with("[x] ") || text.starts_with("[X] ")) {
        const Text made = (isOpen ? "\u2610" : "\u2611") + Text(text.substr(3));
        cmark_node_set_literal(first, made.c_str());
    }
}

/// "~~" in a text, and whether struck text may begin or end there.
struct StrikeMark {
    cmark_node* node;
    std::size_t at;
    bool opens;
    bool closes;
    bool isPaired = false;
};

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

/// Whether words stand right beside a text.
bool isWord(cmark_node* neighbour) {
    return neighbour != nullptr && cmark_node_get_type(neighbour) != CMARK_NODE_SOFTBREAK
           && cmark_node_get_type(neighbour) != CMARK_NODE_LINEBREAK;
}

void findMarks(cmark_node* node, std::vector<StrikeMark>& marks) {
    const TextView text = literalOf(node);
    for (std::size_t at = 0; (at = text.find(strike, at)) != TextView::npos;) {
        const std::size_t end = std::min(text.find_first_not_of('~', at), text.size());
        if (end - at == strike.size()) {
            const bool opens =
                end < text.size() ? !isBlank(text[end]) : isWord(cmark_node_next(node));
            const bool closes = at > 0 ? !isBlank(text[at - 1]) : isWord(cmark_node_previous(node));
            marks.push_back({node, at, opens, closes});
        }
        at = end;
    }
}

/// Two marks that belong together lie in one element, so tags do not cross.
void pair(std::vector<StrikeMark>& marks) {
    StrikeMark* open = nullptr;
    for (StrikeMark& mark : marks) {
        if (open != nullptr && mark.closes) {
            open->isPaired = true;
            open->closes = false;
            mark.isPaired = true;
            mark.opens = false;
            open = nullptr;
        } else if (open == nullptr && mark.opens) {
            open = &mark;
        }
    }
}

void insertBefore(cmark_node* node, cmark_node_type type, const Text& literal) {
    if (literal.empty()) {
        return;
    }
    cmark_node* made = cmark_node_new(type);
    cmark_node_set_literal(made, literal.c_str());
    cmark_node_insert_before(node, made);
}

/// Puts tags in place of the marks that struck text begins and ends with.
void strikeChildren(cmark_node* parent) {
    std::vector<StrikeMark> marks;
    for (cmark_node* each = cmark_node_first_child(parent); each != nullptr;
         each = cmark_node_next(each)) {
        if (isText(each)) {
            findMarks(each, marks);
        }
    }
    pair(marks);
    std::erase_if(marks, [](const StrikeMark& mark) { return !mark.isPaired; });
    for (std::size_t i = 0; i < marks.size();) {
        cmark_node* node = marks[i].node;
        const Text text(literalOf(node));
        std::size_t done = 0;
        for (; i < marks.size() && marks[i].node == node; ++i) {
            insertBefore(node, CMARK_NODE_TEXT, text.substr(done, marks[i].at - done));
            insertBefore(node, CMARK_NODE_HTML_INLINE, marks[i].opens ? "<s>" : "</s>");
            done = marks[i].at + strike.size();
        }
        cmark_node_set_literal(node, text.substr(done).c_str());
    }
}

/// All items, and all elements in which a struck text may stand; while an iterator is on its way,
/// nothing may change.
std::vector<cmark_node*> elementsOf(cmark_node* document) {
    std::vector<cmark_node*> elements;
    const std::unique_ptr<cmark_iter, void (*)(cmark_iter*)> each(cmark_iter_new(document),
                                                                  cmark_iter_free);
    std::unordered_set<cmark_node*> known;
    while (cmark_iter_next(each.get()) != CMARK_EVENT_DONE) {
        cmark_node* node = cmark_iter_get_node(each.get());
        const bool isStruck = isText(node) && literalOf(node).find(strike) != Text::npos;
        cmark_node* element = isStruck ? cmark_node_parent(node) : node;
        if ((isStruck || cmark_node_get_type(node) == CMARK_NODE_ITEM)
            && known.insert(element).second) {
            elements.push_back(element);
        }
    }
    return elements;
}

} // namespace

Text htmlOfCommonMark(TextView markdown) {
    const std::unique_ptr<cmark_node, void (*)(cmark_node*)> document(
        cmark_parse_document(markdown.data(), markdown.size(), CMARK_OPT_VALIDATE_UTF8),
        cmark_node_free);
    if (!document) {
        return {};
    }
    for (cmark_node* element : elementsOf(document.get())) {
        if (cmark_node_get_type(element) == CMARK_NODE_ITEM) {
            replaceBox(element);
        } else {
            strikeChildren(element);
        }
    }
    const std::unique_ptr<char, void (*)(void*)> html(
        cmark_render_html(document.get(), CMARK_OPT_UNSAFE), std::free);
    return html ? Text(html.get()) : Text();
}

} // namespace importer
