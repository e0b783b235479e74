#include "web/PartScanner.h"

namespace web {

namespace {

constexpr std::size_t longestPart = 512; ///< in bytes; longer ones are cut

} // namespace

void PartScanner::take() {
    const std::size_t start = position_;
    kind_ = takeKind(text_, position_);
    const text::TextView within = text_.substr(0, start + longestPart);
    while (kind_ != LetterKind::ofRun) {
        position_ = endOfPlain(within, position_, kind_);
        std::size_t behind = position_;
        if (position_ >= within.size() || takeKind(text_, behind) != kind_) {
            break;
        }
        position_ = behind;
    }
    part_ = text_.substr(start, position_ - start);
}

bool PartScanner::next() {
    if (position_ >= text_.size()) {
        return false;
    }
    const bool isBehindWord = isWord();
    take();
    if (isBehindWord && part_ == " " && position_ < text_.size()) {
        std::size_t behind = position_;
        if (takeKind(text_, behind) == LetterKind::ofWord) {
            take();
        }
    }
    return true;
}

} // namespace web
