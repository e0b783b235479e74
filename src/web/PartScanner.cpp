#include "web/PartScanner.h"

#include "text/Unicode.h"
#include "workshop/WordLetters.h"

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

/// Whether a part that stands behind a word belongs to it, or may, and takes it then.
bool PartJoiner::goesOn(text::TextView part, LetterKind kind) {
    if (kind == LetterKind::none) {
        text::TextView rest = part;
        const bool mayJoin = !isRun_ && joining_ == 0 && !part.empty()
                             && workshop::joinsLetters(text::takeUtf8(rest)) && rest.empty();
        joining_ = mayJoin ? part.size() : joining_;
        return mayJoin;
    }
    if ((kind == LetterKind::ofRun) != isRun_ || (isRun_ && joining_ > 0)) {
        return false;
    }
    word_ = {word_.data(), word_.size() + joining_ + part.size()};
    joining_ = 0;
    number_ = noNumber;
    return true;
}

} // namespace web
