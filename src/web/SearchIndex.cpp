#include "web/SearchIndex.h"

#include <algorithm>

#include "text/Unicode.h"
#include "web/PartScanner.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr std::uint32_t headingWeight = 100;
constexpr std::uint32_t oftenWeight = 3; ///< of a page that holds a word several times
constexpr std::size_t longestWord = 64;  ///< in bytes; longer ones are no words

/// The bits that most distances have if a word is spread evenly over the pages.
unsigned usualBits(std::size_t count, std::size_t pageCount) {
    unsigned usual = 0;
    while (count << (usual + 1) <= pageCount) {
        ++usual;
    }
    return usual;
}

bool isOften(const Posting& posting) {
    return posting.weight >= oftenWeight;
}

} // namespace

void SearchIndex::add(std::size_t page, TextView text, bool isHeading) {
    const std::uint32_t weight = isHeading ? headingWeight : 1;
    WordScanner scanner(text);
    while (scanner.next()) {
        if (scanner.isRun()) {
            addRun(page, scanner.word(), weight);
        } else if (scanner.word().size() <= longestWord) {
            count(termOfWord(scanner.word()), page, weight);
        }
    }
}

void SearchIndex::addWord(std::size_t page, TextView word, bool isRun, std::uint32_t number) {
    if (isRun) {
        addRun(page, word, 1);
    } else if (number == PartJoiner::noNumber) {
        if (word.size() <= longestWord) {
            count(termOfWord(word), page, 1);
        }
    } else if (word.size() <= longestWord) {
        if (number >= termOfNumber_.size()) {
            termOfNumber_.resize(2 * std::size_t(number) + 1, noTerm);
        }
        std::uint32_t& term = termOfNumber_[number];
        term = term == noTerm ? termOfWord(word) : term;
        count(term, page, 1);
    }
}

std::uint32_t SearchIndex::termOfWord(TextView word) {
    const auto [number, isNew] = words_.numberOf(word);
    if (isNew) {
        words_.moveKey(number, kept_.emplace_back(word));
        termOfWord_.push_back(termOf(text::searchKey(word)));
    }
    return termOfWord_[number];
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

bool PieceWriter::isSame(const Postings& a, const Postings& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Posting& one, const Posting& other) {
                          return one.page == other.page && isOften(one) == isOften(other);
                      });
}

/// Whether any page has the word often, the distances from page to page, and for each page whether
/// that one has it often, unless it is known.
void PieceWriter::append(TextView word, const Postings& postings) {
    if (first_.empty()) {
        first_ = word;
    }
    coder_.append(bits_, code_, word);
    const unsigned usual = usualBits(postings.size(), pageCount_);
    bits_.appendGamma(postings.size());
    const bool hasOften = std::any_of(postings.begin(), postings.end(), isOften);
    bits_.append(hasOften);
    std::size_t last = 0;
    for (const Posting& posting : postings) {
        bits_.appendRice(posting.page - last - 1, usual);
        if (hasOften && postings.size() > 1) {
            bits_.append(isOften(posting));
        }
        last = posting.page;
    }
}

IndexPiece PieceWriter::take() {
    coder_.append(bits_, code_, {});
    return {std::move(first_), bits_.take()};
}

std::optional<std::vector<IndexWord>> wordsOf(TextView text, const LetterCode& code,
                                              std::size_t pageCount) {
    BitReader bits(text);
    FrontDecoder decoder;
    std::vector<IndexWord> all;
    for (Text next = decoder.take(bits, code); !next.empty(); next = decoder.take(bits, code)) {
        IndexWord& word = all.emplace_back();
        word.word = std::move(next);
        const std::size_t count = bits.takeGamma();
        if (count > pageCount) {
            return {};
        }
        const unsigned usual = usualBits(count, pageCount);
        const bool hasOften = bits.takeBit();
        word.postings.reserve(count);
        std::size_t page = 0;
        while (word.postings.size() < count) {
            page += bits.takeRice(usual) + 1;
            if (page > pageCount) {
                return {};
            }
            const bool isOften = hasOften && (count == 1 || bits.takeBit());
            word.postings.push_back({static_cast<std::uint32_t>(page), isOften ? oftenWeight : 1});
        }
    }
    return bits.isBehind() ? std::nullopt : std::optional(std::move(all));
}

std::vector<SearchIndex::Term> SearchIndex::terms() const {
    std::vector<Term> sorted;
    for (std::size_t term = 0; term < terms_.size(); ++term) {
        if (!keys_.keys()[term].empty()) {
            sorted.emplace_back(keys_.keys()[term], &terms_[term]);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const Term& a, const Term& b) { return isBefore(a.first, b.first); });
    return sorted;
}

std::vector<IndexPiece> SearchIndex::pieces(const std::vector<Term>& terms, std::size_t pageCount,
                                            const LetterCode& code) {
    std::vector<IndexPiece> pieces;
    for (std::size_t i = 0; i < terms.size();) {
        PieceWriter writer(pageCount, code);
        for (; i < terms.size() && writer.size() < pieceSize; ++i) {
            writer.append(terms[i].first, *terms[i].second);
        }
        pieces.push_back(writer.take());
    }
    return pieces;
}

} // namespace web
