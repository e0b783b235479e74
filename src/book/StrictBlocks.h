#pragma once

#include <vector>

#include "book/StrictPhrases.h"

namespace book {

/// Writes blocks so that each stands where strict XHTML lets it.
class StrictBlocks {
protected:
    struct Block {
        const MarkupElement* element = nullptr;
        bool isWritten = true;     ///< false for one that may not stand where it was opened
        bool hasContents = false;  ///< something was put into it; of a list of terms: a meaning
        bool lacksMeaning = false; ///< of a list of terms: the last term
        std::size_t phrasesBefore = 0;
    };

    /// `root` is what the mark-up stands in. See StrictPhrases for the other.
    StrictBlocks(ElementKind root, std::size_t mostAgain)
        : root_{{}, root, {}, {}}, phrases_(out_, mostAgain) {}
    ~StrictBlocks() = default;

    // What is open. Blocks are counted from 1; 0 is none.

    const MarkupElement& top() const;              ///< the innermost one that is written
    std::size_t innermost(ElementKind kind) const; ///< not looked for outside of a table's cell
    std::size_t innermostTable() const;            ///< to which rows and cells belong now

    static bool holdsText(ElementKind kind);

    // Names stand before the next words, or in the next tag that takes one.

    void writeNames();
    text::Text takeName();

    // Blocks.

    void beginWords();

    /// Makes a place for a block; false where there can be none. A paragraph ends before one, and
    /// a heading that was not closed; not one that holds nothing but another block.
    bool makePlace(const MarkupElement& element);

    void push(const MarkupElement& element, const text::Text& attributes);
    void pushImplied(const char* tag);

    /// The tag of a block is left out, and its end likewise.
    void pushUnwritten(const MarkupElement& element);

    void addRows();        ///< before a row: the table has parts only
    void addRow();         ///< before a cell, likewise
    void addDescription(); ///< before a description: it has a term

    void closeTo(std::size_t count);
    void close(const MarkupElement& element); ///< where its end tag stands

    text::Text out_;
    MarkupElement root_;
    StrictPhrases phrases_;
    std::vector<Block> blocks_;
    std::vector<text::Text> names_;

private:
    std::size_t writtenCount() const;
    bool holdsWordsOnly() const;
    void makeRoom();
    void closeLast();
};

} // namespace book
