#include "web/SearchIndex.h"

#include <algorithm>

#include "text/Unicode.h"
#include "web/FrontCoder.h"
#include "web/WordScanner.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr std::uint32_t headingWeight = 100;
constexpr std::uint32_t oftenWeight = 3; ///< of a page that holds a word several times
constexpr std::size_t longestWord = 64;  ///< in bytes; longer ones are no words
constexpr std::size_t pieceSize = 16000;

} // namespace

void SearchIndex::add(std::size_t page, TextView text, bool isHeading) {
    const std::uint32_t weight = isHeading ? headingWeight : 1;
    WordScanner scanner(text);
    while (scanner.next()) {
        if (scanner.isRun()) {
            addRun(page, scanner.word(), weight);
        } else if (scanner.word().size() <= longestWord) {
            word_ = scanner.word();
            const auto [found, isNew] = termOfWord_.try_emplace(word_);
            if (isNew) {
                found->second = termOf(text::searchKey(word_));
            }
            count(found->second, page, weight);
        }
    }
}

/// Each pair of letters is a word, and so is the last letter.
void SearchIndex::addRun(std::size_t page, TextView run, std::uint32_t weight) {
    const Text key = text::searchKey(run);
    for (TextView rest = key; !rest.empty();) {
        TextView behind = rest;
        text::takeUtf8(behind);
        const TextView next = behind;
        if (!behind.empty()) {
            text::takeUtf8(behind);
        }
        count(termOf(Text(rest.substr(0, rest.size() - behind.size()))), page, weight);
        rest = next;
    }
}

std::size_t SearchIndex::termOf(const Text& key) {
    const auto [found, isNew] = termOfKey_.try_emplace(key, terms_.size());
    if (isNew) {
        terms_.push_back({key, {}});
    }
    return found->second;
}

void SearchIndex::count(std::size_t term, std::size_t page, std::uint32_t weight) {
    std::vector<Posting>& postings = terms_[term].postings;
    if (postings.empty() || postings.back().page != page) {
        postings.push_back({static_cast<std::uint32_t>(page), 0});
    }
    postings.back().weight += weight;
}

/// The distances from page to page: of as many bits as they have if the word is spread evenly, and
/// one for how often the page has it.
void SearchIndex::appendPages(BitText& bits, const Term& term, std::size_t pageCount) {
    const std::size_t count = term.postings.size();
    unsigned usual = 0;
    while (count << (usual + 1) <= pageCount) {
        ++usual;
    }
    bits.appendGamma(count);
    std::size_t last = 0;
    for (const Posting& posting : term.postings) {
        bits.appendRice(posting.page - last - 1, usual);
        bits.append(posting.weight >= oftenWeight);
        last = posting.page;
    }
}

std::vector<SearchIndex::Piece> SearchIndex::pieces(std::size_t pageCount) const {
    std::vector<const Term*> sorted;
    for (const Term& term : terms_) {
        if (!term.key.empty()) {
            sorted.push_back(&term);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const Term* a, const Term* b) { return a->key < b->key; });
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < sorted.size();) {
        Piece piece{sorted[i]->key, {}, {}};
        FrontCoder coder(split);
        BitText bits;
        for (; i < sorted.size() && piece.words.size() + bits.size() < pieceSize; ++i) {
            coder.append(piece.words, sorted[i]->key);
            appendPages(bits, *sorted[i], pageCount);
        }
        piece.pages = bits.take();
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

} // namespace web
