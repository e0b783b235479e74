#pragma once

#include <vector>

#include "book/MarkupElement.h"

namespace book {

/// What stands around words: tags that may cross each other, and go on behind the end of a block.
/// They are written when there are words for them.
class StrictPhrases {
public:
    /// `most` bytes may be spent on tags that are written again.
    StrictPhrases(text::Text& out, std::size_t most) : out_(out), budget_(most) {}

    void open(const MarkupElement& element, text::Text startTag);
    void close(text::TextView tag);

    std::size_t size() const { return wanted_.size(); }
    void shrink(std::size_t size);

    void endOld(); ///< ends those that are over
    void begin();  ///< before words
    void endAll(); ///< before a block, and at its end

private:
    struct Phrase {
        const MarkupElement* element = nullptr;
        text::Text startTag;
        unsigned number = 0;
        bool isOld = false; ///< it was written before
    };

    void end(std::size_t kept);

    text::Text& out_;
    std::size_t budget_;
    std::vector<Phrase> wanted_;
    std::vector<Phrase> written_;
    unsigned lastNumber_ = 0;
};

} // namespace book
