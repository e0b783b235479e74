#include "book/StrictBlocks.h"

namespace book {

using text::append;
using text::Text;
using enum ElementKind;

/// How many blocks there are up to the innermost one that is written.
std::size_t StrictBlocks::writtenCount() const {
    std::size_t count = blocks_.size();
    while (count > 0 && !blocks_[count - 1].isWritten) {
        --count;
    }
    return count;
}

const MarkupElement& StrictBlocks::top() const {
    const std::size_t count = writtenCount();
    return count > 0 ? *blocks_[count - 1].element : root_;
}

bool StrictBlocks::holdsWordsOnly() const {
    return top().kind == paragraph || top().kind == heading;
}

std::size_t StrictBlocks::innermost(ElementKind kind) const {
    for (std::size_t i = blocks_.size(); i > 0; --i) {
        const ElementKind open = blocks_[i - 1].element->kind;
        if (open == kind) {
            return i;
        }
        if (open == cell || open == caption) {
            break;
        }
    }
    return 0;
}

std::size_t StrictBlocks::innermostTable() const {
    std::size_t i = blocks_.size();
    while (i > 0 && blocks_[i - 1].element->kind != table) {
        --i;
    }
    return i;
}

void StrictBlocks::writeNames() {
    if (!names_.empty()) {
        phrases_.endOld();
    }
    for (const Text& id : names_) {
        append(out_, "<span id=\"", id, "\"></span>");
    }
    names_.clear();
}

Text StrictBlocks::takeName() {
    if (names_.empty()) {
        return {};
    }
    Text id = std::move(names_.back());
    names_.pop_back();
    return " id=\"" + id + "\"";
}

void StrictBlocks::push(const MarkupElement& element, const Text& attributes) {
    phrases_.endAll();
    if (top().kind != paragraph && !out_.empty()) {
        out_ += '\n';
    }
    append(out_, "<", element.strictTag, attributes, ">");
    blocks_.push_back({&element, true, false, false, phrases_.size()});
}

void StrictBlocks::pushImplied(const char* tag) {
    push(*findElement(tag), {});
}

void StrictBlocks::pushUnwritten(const MarkupElement& element) {
    blocks_.push_back({&element, false, false, false, phrases_.size()});
}

void StrictBlocks::closeLast() {
    const Block block = blocks_.back();
    if (!block.isWritten) {
        blocks_.pop_back();
        return;
    }
    if (holdsText(block.element->kind)) {
        writeNames();
    }
    phrases_.endAll();
    if (block.lacksMeaning) {
        out_ += "<dd></dd>";
    }
    append(out_, "</", block.element->strictTag, ">");
    blocks_.pop_back();
    if (block.element->kind == cell || block.element->kind == caption) {
        phrases_.shrink(block.phrasesBefore);
    }
}

void StrictBlocks::closeTo(std::size_t count) {
    while (blocks_.size() > count) {
        closeLast();
    }
}

bool StrictBlocks::holdsText(ElementKind kind) {
    return kind != list && kind != definitions && kind != table && kind != rows && kind != row;
}

/// Makes a place for words where only items, terms or cells may stand.
void StrictBlocks::makeRoom() {
    switch (top().kind) {
    case list:
        pushImplied("li");
        break;
    case definitions:
        addDescription();
        pushImplied("dd");
        break;
    case table:
    case rows:
    case row:
        addRow();
        pushImplied("td");
        break;
    default:
        break;
    }
}

bool StrictBlocks::makePlace(const MarkupElement& element) {
    const std::size_t count = writtenCount();
    const bool isWithin = element.kind == paragraph || element.kind == block;
    if (count > 0
        && (top().tag == "p"
            || (top().kind == heading && (!isWithin || blocks_[count - 1].hasContents)))) {
        closeTo(count - 1);
    }
    if (holdsWordsOnly()) {
        return false;
    }
    makeRoom();
    return true;
}

void StrictBlocks::addRow() {
    addRows();
    if (top().kind == rows) {
        pushImplied("tr");
    }
}

void StrictBlocks::addRows() {
    if (top().kind == table) {
        blocks_.back().hasContents = true;
        pushImplied("tbody");
    }
}

void StrictBlocks::addDescription() {
    if (!blocks_.back().lacksMeaning && !blocks_.back().hasContents) {
        out_ += "<dt></dt>";
    }
    blocks_.back().hasContents = true;
    blocks_.back().lacksMeaning = false;
}

void StrictBlocks::beginWords() {
    makeRoom();
    writeNames();
    phrases_.begin();
    if (const std::size_t count = writtenCount(); count > 0) {
        blocks_[count - 1].hasContents = true;
    }
}

void StrictBlocks::close(const MarkupElement& element) {
    if (element.kind == phrase) {
        phrases_.close(element.tag);
        return;
    }
    const bool isOfTable = element.kind == table || element.kind == rows || element.kind == row
                           || element.kind == cell || element.kind == caption;
    const std::size_t outer = isOfTable ? innermostTable() : 0;
    for (std::size_t i = blocks_.size(); i > 0 && i >= outer; --i) {
        const MarkupElement& open = *blocks_[i - 1].element;
        const bool isBoth = open.kind == heading && element.kind == heading;
        if (open.tag == element.tag || isBoth) {
            closeTo(i - 1);
            return;
        }
        const bool isBorder = open.kind == cell || open.kind == caption
                              || (open.kind == list && element.kind == item);
        if (isBorder && !isOfTable) {
            return;
        }
    }
}

} // namespace book
