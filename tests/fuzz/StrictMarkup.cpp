#include "book/StrictMarkup.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <vector>

#include "Require.h"
#include "book/MarkupElement.h"
#include "text/CodePage.h"
#include "text/Unicode.h"

using book::ElementKind;
using text::Text;
using text::TextView;

namespace {

/// Knows every address and every name, each name once.
class Places : public book::MarkupPlaces {
public:
    std::optional<Text> link(TextView address) override {
        return address.size() % 3 == 0 ? std::nullopt : std::optional<Text>("a.xhtml");
    }
    std::optional<Text> picture(TextView address) override {
        return address.size() % 3 == 0 ? std::nullopt : std::optional<Text>("1.png");
    }
    Text id(TextView name) override {
        return name.empty() || !known_.insert(Text(name)).second
                   ? Text()
                   : "i" + std::to_string(known_.size());
    }
    Text newName() override { return "m" + std::to_string(++names_); }

private:
    std::set<Text> known_;
    int names_ = 0;
};

bool mayHold(ElementKind outer, ElementKind inner) {
    const auto isIn = [inner](std::initializer_list<ElementKind> kinds) {
        return std::find(kinds.begin(), kinds.end(), inner) != kinds.end();
    };
    switch (outer) {
    case ElementKind::list:
        return inner == ElementKind::item;
    case ElementKind::definitions:
        return isIn({ElementKind::term, ElementKind::description});
    case ElementKind::table:
        return isIn({ElementKind::caption, ElementKind::rows});
    case ElementKind::rows:
        return inner == ElementKind::row;
    case ElementKind::row:
        return inner == ElementKind::cell;
    case ElementKind::block:
    case ElementKind::item:
    case ElementKind::description:
    case ElementKind::cell:
        return !isIn({ElementKind::item, ElementKind::term, ElementKind::description,
                      ElementKind::caption, ElementKind::rows, ElementKind::row,
                      ElementKind::cell});
    case ElementKind::term:
        return inner != ElementKind::heading && mayHold(ElementKind::block, inner);
    case ElementKind::caption:
        return inner != ElementKind::table && mayHold(ElementKind::block, inner);
    default: // words
        return isIn({ElementKind::phrase, ElementKind::lineBreak, ElementKind::picture});
    }
}

bool holdsWords(ElementKind kind) {
    return mayHold(kind, ElementKind::phrase);
}

/// Reads strict mark-up as a reader would that gives up at the first fault.
class StrictReader {
public:
    StrictReader(TextView text, ElementKind root) : rest_(text), open_{{{}, root}} {}

    void read() {
        while (!rest_.empty()) {
            rest_.front() == '<' ? readTag() : readText();
        }
        require(open_.size() == 1, "a tag is not closed");
    }

private:
    struct Open {
        TextView tag;
        ElementKind kind;
    };

    bool take(TextView what) {
        const bool isThere = rest_.starts_with(what);
        rest_.remove_prefix(isThere ? what.size() : 0);
        return isThere;
    }

    TextView takeName() {
        std::size_t end = 0;
        while (
            end < rest_.size()
            && ((rest_[end] >= 'a' && rest_[end] <= 'z')
                || (end > 0 && (rest_[end] == '-' || (rest_[end] >= '0' && rest_[end] <= '9'))))) {
            ++end;
        }
        const TextView name = rest_.substr(0, end);
        require(!name.empty(), "a name is missing");
        rest_.remove_prefix(end);
        return name;
    }

    static void checkCharacters(TextView text) {
        require(text::isUtf8(text), "no UTF-8");
        while (!text.empty()) {
            const char byte = text.front();
            require(static_cast<unsigned char>(byte) >= ' ' || byte == '\n' || byte == '\t',
                    "a character that XML cannot hold");
            if (byte == '&') {
                const TextView name = text.substr(0, text.find(';') + 1);
                const auto names = {"&amp;", "&lt;", "&gt;", "&quot;"};
                require(std::find(names.begin(), names.end(), name) != names.end(),
                        "an ampersand alone");
            }
            text::takeUtf8(text);
        }
    }

    void readText() {
        const TextView text = rest_.substr(0, std::min(rest_.find('<'), rest_.size()));
        require(text.find('>') == TextView::npos, "a sign of a tag");
        require(holdsWords(open_.back().kind) || text.find_first_not_of(" \n") == TextView::npos,
                "words where none may stand");
        checkCharacters(text);
        rest_.remove_prefix(text.size());
    }

    void readAttributes() {
        std::set<TextView> names;
        while (take(" ")) {
            const TextView name = takeName();
            require(names.insert(name).second, "an attribute twice");
            require(take("=\""), "an attribute without a value");
            const TextView value = rest_.substr(0, rest_.find('"'));
            require(value.size() < rest_.size() && value.find('<') == TextView::npos,
                    "a value without an end");
            checkCharacters(value);
            require(name != "id" || ids_.insert(value).second, "a name twice");
            rest_.remove_prefix(value.size() + 1);
        }
    }

    void readMap() {
        require(mayHold(open_.back().kind, ElementKind::phrase), "a map where it may not stand");
        readAttributes();
        require(take(">"), "a tag without an end");
        while (take("<area")) {
            readAttributes();
            require(take("/>"), "an area without an end");
        }
        require(take("</map>"), "something else in a map");
    }

    void readTag() {
        take("<");
        if (take("/")) {
            require(takeName() == open_.back().tag && open_.size() > 1, "tags cross");
            require(take(">"), "an end tag without an end");
            open_.pop_back();
            return;
        }
        const TextView tag = takeName();
        if (tag == "map") {
            readMap();
            return;
        }
        const book::MarkupElement* element = book::findElement(tag);
        require(element != nullptr && element->strictTag == tag, "an old or unknown tag");
        require(mayHold(open_.back().kind, element->kind), "an element where it may not stand");
        const bool isWithin = std::any_of(open_.begin(), open_.end(),
                                          [tag](const Open& open) { return open.tag == tag; });
        require(tag != "a" || !isWithin, "a link in a link");
        readAttributes();
        if (!take("/>")) {
            require(take(">"), "a tag without an end");
            open_.push_back({tag, element->kind});
        }
    }

    TextView rest_;
    std::vector<Open> open_;
    std::set<TextView> ids_;
};

} // namespace

/// Whatever an author writes, what is made of it is strict.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Text input = text::CodePage().decoded({reinterpret_cast<const char*>(data), size});
    const TextView html =
        size % 2 == 0 ? TextView(input) : TextView(reinterpret_cast<const char*>(data), size);
    Places places;
    const Text blocks = book::strictBlocks(html, places);
    StrictReader(blocks, ElementKind::block).read();
    require(blocks.size() <= 40 * html.size() + 1000, "far more than there was");
    StrictReader(book::strictWords(html, places), ElementKind::heading).read();
    const Text again = book::strictBlocks(blocks, places);
    StrictReader(again, ElementKind::block).read();
    StrictReader(book::escapedText(book::plainWords(html)), ElementKind::heading).read();
    return 0;
}
