#include "web/SearchData.h"

#include <charconv>

#include "generate/TopicPage.h"
#include "platform/Memory.h"
#include "web/PackedScript.h"
#include "web/SearchUpdate.h"
#include "web/SiteData.h"
#include "workshop/WordLetters.h"

namespace web {

using text::append;
using text::Text;
using text::TextView;

namespace {

/// Ranges of characters as classes of regular expressions have them.
Text ranges(std::span<const workshop::LetterRange> letters) {
    constexpr int sixteens = 16;
    const auto character = [](char32_t number) {
        char digits[2 * sizeof number];
        char* const end =
            std::to_chars(std::begin(digits), std::end(digits), std::uint32_t(number), sixteens)
                .ptr;
        return "\\u{" + Text(std::begin(digits), end) + "}";
    };
    Text text;
    for (const workshop::LetterRange& range : letters) {
        append(text, character(range.first), "-", character(range.last));
    }
    return text;
}

} // namespace

Text wordsPlace(std::size_t number) {
    return "site/words/" + std::to_string(number) + ".js";
}

Text textsPlace(std::size_t number) {
    return "site/texts/" + std::to_string(number) + ".js";
}

SearchData::SearchData(const model::TopicOutline& outline, const SiteMap& map,
                       const SiteFolder& folder)
    : outline_(outline), map_(map), folder_(folder), state_(SearchState::of(outline, map)),
      texts_(outline) {
    for (std::size_t page = 1; page < state_.pages.size(); ++page) {
        if (map_.hasPage(static_cast<int>(page))) {
            pages_.push_back(page);
        }
    }
    const auto text = folder_.contentsOf(Text(statePlace));
    const auto before = text ? SearchState::parse(*text) : std::nullopt;
    if (before && differsLittle(*before)) {
        isUpdated_ = std::async([this, before] { return update(*before); });
    } else {
        isPacked_ = std::async([this] {
            platform::takeThreadsMemoryInLargeSteps();
            packAll();
        });
    }
}

SearchData::Texts SearchData::textsOf(const std::vector<std::size_t>& pages) const {
    Texts texts(state_.pages.size());
    for (const std::size_t page : pages) {
        texts[page] = plainText(outline_.at(static_cast<int>(page)).body);
    }
    return texts;
}

void SearchData::addHeadings(SearchIndex& index, std::size_t page) const {
    const auto position = static_cast<int>(page);
    index.add(page, map_.at(position).title, true);
    for (const TextView keyword : generate::keywordsOf(outline_.at(position))) {
        index.add(page, plainLine(keyword), true);
    }
}

/// Whether what is in the folder can be changed instead of made anew. Numbers that were given to
/// the parts of other texts pack less and less.
bool SearchData::differsLittle(const SearchState& before) {
    constexpr std::size_t fewest = 20;
    constexpr std::size_t least = 5; // times as many pages as may be packed anew
    const std::vector<std::uint64_t>& pages = before.pages;
    if (before.maker != state_.maker || pages.size() != state_.pages.size()
        || pages.size() <= fewest) {
        return false;
    }
    for (std::size_t page = 1; page < pages.size(); ++page) {
        if (pages[page] != state_.pages[page]) {
            if (pages[page] == 0 || state_.pages[page] == 0) {
                return false;
            }
            changed_.push_back(page);
        }
    }
    if ((before.changes + changed_.size()) * least > pages.size()) {
        return false;
    }
    bool isThere = folder_.isAsWritten(Text(partsPlace)) && folder_.isAsWritten(Text(searchPlace));
    for (std::size_t i = 0; i < before.wordFiles; ++i) {
        isThere = isThere && folder_.isAsWritten(wordsPlace(i));
    }
    for (std::size_t i = 0; i < before.firstPages.size(); ++i) {
        isThere = isThere && folder_.isAsWritten(textsPlace(i));
    }
    return isThere;
}

bool SearchData::update(const SearchState& before) {
    SearchUpdate update(folder_, before);
    if (!changed_.empty()) {
        const Texts texts = textsOf(changed_);
        SearchIndex index;
        for (const std::size_t page : changed_) {
            addHeadings(index, page);
            index.add(page, texts[page], false);
        }
        if (!update.replace(changed_, index, texts)) {
            return false;
        }
        made_ = {update.letterCode(), update.firstWords(), update.pieces(), update.textFiles(), {}};
    }
    state_.changes = before.changes + changed_.size();
    state_.wordFiles = before.wordFiles;
    state_.firstPages = before.firstPages;
    return true;
}

void SearchData::packAll() {
    const Texts& texts = texts_.all();
    SearchIndex index;
    const SearchTexts packing(texts, index, [&](std::size_t page) {
        if (page > 0 && map_.hasPage(static_cast<int>(page))) {
            texts_.make(page);
            addHeadings(index, page);
        }
    });
    const std::vector<SearchIndex::Term> terms = index.terms();
    LetterCounts counts;
    packing.countLetters(counts);
    FrontCoder coder;
    for (const auto& [word, postings] : terms) {
        coder.count(counts, word);
    }
    const LetterCode letters(counts);
    made_.letterCode = letters.format();
    made_.table = packing.table(letters);
    packTexts(packing, letters);
    std::vector<IndexPiece> pieces = SearchIndex::pieces(terms, texts.size() - 1, letters);
    state_.wordFiles = pieces.size();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        made_.firstWords.push_back(pieces[i].first);
        made_.pieces[i] = std::move(pieces[i]);
    }
    changed_ = pages_;
}

void SearchData::packTexts(const SearchTexts& packing, const LetterCode& letters) {
    const Texts& texts = texts_.all();
    constexpr std::size_t usualRatio = 5; // of a text to what it is packed
    BitText file;
    for (std::size_t page = 1; page < texts.size(); ++page) {
        if (page == 1
            || file.size() + texts[page].size() / usualRatio > SearchTexts::usualFileSize) {
            if (page > 1) {
                made_.textFiles[state_.firstPages.size() - 1] = file.take();
            }
            state_.firstPages.push_back(page);
        }
        packing.pack(page, letters, file);
    }
    if (!state_.firstPages.empty()) {
        made_.textFiles[state_.firstPages.size() - 1] = file.take();
    }
}

void SearchData::shareWork() {
    if (isPacked_.valid()) {
        texts_.makeFromEnd(pages_);
    }
}

void SearchData::finish() {
    if (isPacked_.valid()) {
        isPacked_.get();
    } else if (!isUpdated_.get()) {
        packAll();
    }
}

Text SearchData::directory() const {
    Text value = "topicsmith({codes:" + scriptText(made_.letterCode)
                 + ",\nletters:" + scriptText(ranges(workshop::wordLetters()))
                 + ",\njoined:" + scriptText(ranges(workshop::joinedScripts())) + ",\nwords:[";
    for (const Text& word : made_.firstWords) {
        append(value, &word == &made_.firstWords.front() ? "" : ",", scriptText(word));
    }
    append(value, "],\ncount:", std::to_string(map_.count()), ",\ntexts:[");
    std::size_t before = 0;
    for (const std::size_t page : state_.firstPages) {
        append(value, before == 0 ? "" : ",", std::to_string(page - before));
        before = page;
    }
    return value += "]});\n";
}

void SearchData::addTo(SiteFolder& folder) {
    finish();
    if (changed_.empty()) {
        folder.keep(Text(searchPlace));
    } else {
        folder.add(Text(searchPlace), directory());
    }
    if (made_.table) {
        folder.add(Text(partsPlace), packedScript(*made_.table));
    } else {
        folder.keep(Text(partsPlace));
    }
    for (std::size_t i = 0; i < state_.wordFiles; ++i) {
        if (const auto piece = made_.pieces.find(i); piece != made_.pieces.end()) {
            folder.add(wordsPlace(i), packedScript(piece->second.bits));
        } else {
            folder.keep(wordsPlace(i));
        }
    }
    for (std::size_t i = 0; i < state_.firstPages.size(); ++i) {
        if (const auto file = made_.textFiles.find(i); file != made_.textFiles.end()) {
            folder.add(textsPlace(i), packedScript(file->second));
        } else {
            folder.keep(textsPlace(i));
        }
    }
    folder.add(Text(statePlace), state_.format());
}

} // namespace web
