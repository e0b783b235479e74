#pragma once

#include <vector>

#include "editor/PastedBlocks.h"

namespace editor {

/// Puts blocks and runs together in the order in which a text from elsewhere has them. What lies
/// in the wrong block gets the right one around it, and blanks are counted as browsers do.
class PasteBuilder {
public:
    PasteBuilder() = default;
    PasteBuilder(const PasteBuilder&) = delete;
    PasteBuilder& operator=(const PasteBuilder&) = delete;

    RunFormat format;            ///< of what comes next
    bool convertedBlank = false; ///< a non-breaking blank that stands alone was a usual one

    std::size_t blockCount() const { return blocks_.size(); }
    bool isIn(TextView tag) const { return blocks_.back()->is(tag); }

    /// In the block that is open, or another one around it; cells know how far they reach. Where
    /// blocks lie too deep in each other, nothing is opened.
    void openBlock(TextView tag, int columns = 1, int rows = 1);

    /// Closes blocks until so many are left.
    void closeBlocks(std::size_t left);

    /// What comes next is a new paragraph, unless it opens a block.
    void endParagraph();

    void addText(TextView text); ///< without references
    void addLineBreak();
    void addPicture(PastedPicture picture);
    void addRule();

    /// A place stands before the run that comes next.
    void addPlace(Text name) { places_.push_back(std::move(name)); }

    /// Goes on in the list that was the last block, or opens one, as deep in others as is said;
    /// nothing is opened where `openBlock` would not.
    void openListItem(int level, TextView list);

    /// Whether there was more than text that looks like any other.
    bool says() const { return says_; }

    PastedNode take(); ///< once, at the end

private:
    static constexpr std::size_t mostBlocks = 40;

    bool isDeep() const { return blocks_.size() >= mostBlocks; }
    PastedNode& block() { return *blocks_.back(); }
    void open(TextView tag);
    void openFrameOf(TextView tag);
    void reopenLast(TextView tag);
    static bool isBlankRun(const PastedNode& run);
    RunFormat formatHere() const;
    bool inHeaderCell() const;
    static RunFormat common(const RunFormat& a, const RunFormat& b);
    void addRun(PastedNode run);
    void addWords(Text text);
    void addLines(TextView text);

    PastedNode root_;
    std::vector<PastedNode*> blocks_{&root_}; ///< open ones, each the last child of the one before
    std::vector<Text> places_;                ///< that wait for a run
    bool pendingBlank_ = false;
    bool says_ = false;
};

} // namespace editor
