#include "web/SearchUpdate.h"

#include <algorithm>

#include "web/SearchData.h"
#include "web/SiteData.h"
#include "web/TextPacker.h"

namespace web {

using text::Text;
using text::TextView;

bool SearchUpdate::replace(const std::vector<std::size_t>& pages, const SearchIndex& index,
                           const std::vector<Text>& texts) {
    if (!readWords() || !replaceTexts(pages, texts)) {
        return false;
    }
    removePages(pages);
    addWords(index);
    return writeWords();
}

bool SearchUpdate::readWords() {
    for (std::size_t i = 0; i < state_.wordFiles; ++i) {
        const auto script = folder_.contentsOf(wordsPlace(i));
        const std::vector<Text> texts = script ? scriptTexts(*script) : std::vector<Text>();
        constexpr std::size_t expected = 3; // what it is, words, pages
        auto words = texts.size() == expected ? wordsOf(texts[1], texts[2], state_.pages.size() - 1)
                                              : std::nullopt;
        if (!words || words->empty()) {
            return false;
        }
        files_.push_back({std::move(*words)});
    }
    return !files_.empty();
}

void SearchUpdate::removePages(const std::vector<std::size_t>& pages) {
    for (File& file : files_) {
        for (IndexWord& word : file.words) {
            file.isChanged = std::erase_if(word.postings,
                                           [&](const Posting& posting) {
                                               return std::binary_search(pages.begin(), pages.end(),
                                                                         posting.page);
                                           })
                                 > 0
                             || file.isChanged;
        }
    }
}

void SearchUpdate::addWords(const SearchIndex& index) {
    const auto isBehind = [](TextView word, const IndexWord& other) { return word < other.word; };
    auto file = files_.begin();
    for (const auto& [word, postings] : index.terms()) {
        while (file + 1 != files_.end() && !isBehind(word, (file + 1)->words.front())) {
            ++file;
        }
        auto at = std::upper_bound(file->words.begin(), file->words.end(), word, isBehind);
        if (at == file->words.begin() || (at - 1)->word != word) {
            at = file->words.insert(at, {Text(word), {}}) + 1;
        }
        Postings& all = (at - 1)->postings;
        const auto middle = all.insert(all.end(), postings->begin(), postings->end());
        std::inplace_merge(all.begin(), middle, all.end(),
                           [](const Posting& a, const Posting& b) { return a.page < b.page; });
        file->isChanged = true;
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
        PieceWriter writer(state_.pages.size() - 1);
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

bool SearchUpdate::replaceTexts(const std::vector<std::size_t>& pages,
                                const std::vector<Text>& texts) {
    const auto script = folder_.contentsOf(Text(partsPlace));
    const std::vector<Text> table = script ? scriptTexts(*script) : std::vector<Text>();
    if (table.size() != 2) {
        return false;
    }
    const TextPacker packer(table[1], state_.split);
    std::map<std::size_t, std::vector<Text>> files; // behind what they are
    const std::vector<std::size_t>& firsts = state_.firstPages;
    for (const std::size_t page : pages) {
        const auto behind = std::upper_bound(firsts.begin(), firsts.end(), page);
        if (behind == firsts.begin()) {
            return false;
        }
        const auto file = static_cast<std::size_t>(behind - firsts.begin()) - 1;
        if (!files.contains(file)) {
            const auto old = folder_.contentsOf(textsPlace(file));
            files[file] = old ? scriptTexts(*old) : std::vector<Text>();
        }
        const std::size_t at = page - firsts[file] + 1;
        if (at >= files[file].size()) {
            return false;
        }
        files[file][at] = packer.packed(texts[page]);
    }
    for (const auto& [file, packed] : files) {
        TextsFile made;
        for (auto text = packed.begin() + 1; text != packed.end(); ++text) {
            made.append(*text);
        }
        constexpr std::size_t most = 4 * TextsFile::usualSize; // texts pack less with old numbers
        if (made.size() > most && packed.size() > 2) {
            return false;
        }
        textFiles_[file] = made.values();
    }
    return true;
}

} // namespace web
