#include "book/StrictPhrases.h"

#include <algorithm>

namespace book {

using text::Text;
using text::TextView;

void StrictPhrases::open(const MarkupElement& element, Text startTag) {
    constexpr std::size_t most = 16; // each is written again in each block
    if (wanted_.size() < most) {
        wanted_.push_back({&element, std::move(startTag), ++lastNumber_, false});
    }
}

void StrictPhrases::close(TextView tag) {
    const auto found = std::find_if(wanted_.rbegin(), wanted_.rend(),
                                    [tag](const Phrase& p) { return p.element->tag == tag; });
    if (found != wanted_.rend()) {
        wanted_.erase(std::next(found).base());
    }
}

void StrictPhrases::endOld() {
    std::size_t common = 0;
    while (common < written_.size() && common < wanted_.size()
           && written_[common].number == wanted_[common].number) {
        ++common;
    }
    end(common);
}

void StrictPhrases::begin() {
    endOld();
    for (std::size_t i = written_.size(); i < wanted_.size(); ++i) {
        Phrase& phrase = wanted_[i];
        if (phrase.isOld && phrase.startTag.size() > budget_) {
            wanted_.resize(i); // damaged beyond what a page would hold
            return;
        }
        budget_ -= phrase.isOld ? phrase.startTag.size() : 0;
        phrase.isOld = true;
        out_ += phrase.startTag;
        written_.push_back(phrase);
    }
}

void StrictPhrases::end(std::size_t kept) {
    for (; written_.size() > kept; written_.pop_back()) {
        text::append(out_, "</", written_.back().element->strictTag, ">");
    }
}

void StrictPhrases::shrink(std::size_t size) {
    wanted_.resize(std::min(size, wanted_.size()));
}

void StrictPhrases::endAll() {
    end(0);
}

} // namespace book
