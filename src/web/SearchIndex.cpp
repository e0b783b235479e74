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
            const auto [word, isNew] = words_.numberOf(scanner.word());
            if (isNew) {
                words_.moveKey(word, kept_.emplace_back(scanner.word()));
                termOfWord_.push_back(termOf(text::searchKey(scanner.word())));
            }
            count(termOfWord_[word], page, weight);
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

std::uint32_t SearchIndex::termOf(Text key) {
    const auto [term, isNew] = keys_.numberOf(key);
    if (isNew) {
        keys_.moveKey(term, kept_.emplace_back(std::move(key)));
        terms_.emplace_back();
    }
    return term;
}

void SearchIndex::count(std::uint32_t term, std::size_t page, std::uint32_t weight) {
    std::vector<Posting>& postings = terms_[term];
    if (postings.empty() || postings.back().page != page) {
        postings.push_back({static_cast<std::uint32_t>(page), 0});
    }
    postings.back().weight += weight;
}

/// The distances from page to page: of as many bits as they have if the word is spread evenly, and
/// one for how often the page has it.
void SearchIndex::appendPages(BitText& bits, const Postings& postings, std::size_t pageCount) {
    const std::size_t count = postings.size();
    unsigned usual = 0;
    while (count << (usual + 1) <= pageCount) {
        ++usual;
    }
    bits.appendGamma(count);
    std::size_t last = 0;
    for (const Posting& posting : postings) {
        bits.appendRice(posting.page - last - 1, usual);
        bits.append(posting.weight >= oftenWeight);
        last = posting.page;
    }
}

std::vector<SearchIndex::Piece> SearchIndex::pieces(std::size_t pageCount) const {
    std::vector<std::pair<TextView, const Postings*>> sorted;
    for (std::size_t term = 0; term < terms_.size(); ++term) {
        if (!keys_.keys()[term].empty()) {
            sorted.emplace_back(keys_.keys()[term], &terms_[term]);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& a, const auto& b) { return isBefore(a.first, b.first); });
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < sorted.size();) {
        Piece piece{Text(sorted[i].first), {}, {}};
        FrontCoder coder(split);
        BitText bits;
        for (; i < sorted.size() && piece.words.size() + bits.size() < pieceSize; ++i) {
            coder.append(piece.words, sorted[i].first);
            appendPages(bits, *sorted[i].second, pageCount);
        }
        piece.pages = bits.take();
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

} // namespace web
