#include "web/SearchUpdate.h"

#include <algorithm>

#include "web/PackedScript.h"
#include "web/SearchData.h"
#include "web/SearchTexts.h"
#include "web/SiteData.h"

namespace web {

using text::Text;
using text::TextView;

bool SearchUpdate::replace(const std::vector<std::size_t>& pages, const SearchIndex& index,
                           const std::vector<Text>& texts) {
    if (!readLetters() || !readWords() || !replaceTexts(pages, texts)) {
        return false;
    }
    const std::vector<SearchIndex::Term> terms = index.terms();
    removePages(pages, terms);
    addWords(terms);
    return writeWords();
}

/// The first text of the directory.
bool SearchUpdate::readLetters() {
    const auto script = folder_.contentsOf(Text(searchPlace));
    const std::vector<Text> texts = script ? scriptTexts(*script) : std::vector<Text>();
    auto letters = texts.empty() ? std::nullopt : LetterCode::parse(texts.front());
    if (!letters) {
        return false;
    }
    letterCode_ = texts.front();
    letters_ = std::move(*letters);
    return true;
}

bool SearchUpdate::readWords() {
    for (std::size_t i = 0; i < state_.wordFiles; ++i) {
        const auto script = folder_.contentsOf(wordsPlace(i));
        const auto bits = script ? bitsIn(*script) : std::nullopt;
        auto words = bits ? wordsOf(*bits, letters_, state_.pages.size() - 1) : std::nullopt;
        if (!words || words->empty()) {
            return false;
        }
        files_.push_back({std::move(*words)});
    }
    return !files_.empty();
}

/// Takes the pages out where the index has others, or has them otherwise.
void SearchUpdate::removePages(const std::vector<std::size_t>& pages,
                               const std::vector<SearchIndex::Term>& terms) {
    const auto isOfPages = [&](const Posting& posting) {
        return std::binary_search(pages.begin(), pages.end(), posting.page);
    };
    for (File& file : files_) {
        for (IndexWord& word : file.words) {
            Postings old;
            std::copy_if(word.postings.begin(), word.postings.end(), std::back_inserter(old),
                         isOfPages);
            if (old.empty()) {
                continue;
            }
            const auto term = std::lower_bound(
                terms.begin(), terms.end(), TextView(word.word),
                [](const SearchIndex::Term& a, TextView b) { return a.first < b; });
            const bool isThere = term != terms.end() && term->first == word.word;
            if (!isThere || !PieceWriter::isSame(old, *term->second)) {
                std::erase_if(word.postings, isOfPages);
                file.isChanged = true;
            }
        }
    }
}

void SearchUpdate::addWords(const std::vector<SearchIndex::Term>& terms) {
    const auto isBehind = [](TextView word, const IndexWord& other) { return word < other.word; };
    const auto isBefore = [](const Posting& a, const Posting& b) { return a.page < b.page; };
    auto file = files_.begin();
    for (const auto& [word, postings] : terms) {
        while (file + 1 != files_.end() && !isBehind(word, (file + 1)->words.front())) {
            ++file;
        }
        auto at = std::upper_bound(file->words.begin(), file->words.end(), word, isBehind);
        if (at == file->words.begin() || (at - 1)->word != word) {
            at = file->words.insert(at, {Text(word), {}}) + 1;
        }
        Postings& all = (at - 1)->postings;
        if (!std::binary_search(all.begin(), all.end(), postings->front(), isBefore)) {
            const auto middle = all.insert(all.end(), postings->begin(), postings->end());
            std::inplace_merge(all.begin(), middle, all.end(), isBefore);
            file->isChanged = true;
        }
    }
}

bool SearchUpdate::writeWords() {
    for (std::size_t i = 0; i < files_.size(); ++i) {
        File& file = files_[i];
        std::erase_if(file.words, [](const IndexWord& word) { return word.postings.empty(); });
        if (file.words.empty()) {
            return false;
        }
        firstWords_.push_back(file.words.front().word);
        if (!file.isChanged) {
            continue;
        }
        PieceWriter writer(state_.pages.size() - 1, letters_);
        for (const IndexWord& word : file.words) {
            writer.append(word.word, word.postings);
        }
        if (writer.size() > 2 * SearchIndex::pieceSize) {
            return false;
        }
        pieces_[i] = writer.take();
    }
    return true;
}

/// A file of texts with some of its pages' texts replaced.
std::optional<Text> SearchUpdate::replaced(std::size_t file, const TextPacker& packer,
                                           const std::vector<std::size_t>& pages,
                                           const std::vector<Text>& texts) const {
    const auto script = folder_.contentsOf(textsPlace(file));
    const auto bits = script ? bitsIn(*script) : std::nullopt;
    if (!bits) {
        return {};
    }
    const std::vector<std::size_t>& firsts = state_.firstPages;
    const std::size_t end = file + 1 < firsts.size() ? firsts[file + 1] : state_.pages.size();
    BitReader old(*bits);
    BitText made;
    for (std::size_t page = firsts[file]; page < end; ++page) {
        if (std::binary_search(pages.begin(), pages.end(), page)) {
            BitText nowhere;
            packer.copy(old, nowhere);
            packer.pack(texts[page], made);
        } else {
            packer.copy(old, made);
        }
    }
    constexpr std::size_t most = 4 * SearchTexts::usualFileSize; // texts pack less with old numbers
    if (old.isBehind() || (made.size() > most && end - firsts[file] > 1)) {
        return {};
    }
    return made.take();
}

bool SearchUpdate::replaceTexts(const std::vector<std::size_t>& pages,
                                const std::vector<Text>& texts) {
    const auto script = folder_.contentsOf(Text(partsPlace));
    const auto table = script ? bitsIn(*script) : std::nullopt;
    const TextPacker packer(table.value_or(TextView()), letters_);
    if (!packer.isReady()) {
        return false;
    }
    const std::vector<std::size_t>& firsts = state_.firstPages;
    for (const std::size_t page : pages) {
        const auto behind = std::upper_bound(firsts.begin(), firsts.end(), page);
        if (behind == firsts.begin()) {
            return false;
        }
        const auto file = static_cast<std::size_t>(behind - firsts.begin()) - 1;
        if (!textFiles_.contains(file)) {
            auto made = replaced(file, packer, pages, texts);
            if (!made) {
                return false;
            }
            textFiles_[file] = std::move(*made);
        }
    }
    return true;
}

} // namespace web
