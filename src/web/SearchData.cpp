#include "web/SearchData.h"

#include <charconv>

#include "generate/TopicPage.h"
#include "web/SearchIndex.h"
#include "web/SearchTexts.h"
#include "web/SiteData.h"
#include "workshop/WordLetters.h"

namespace web {

using text::append;
using text::Text;
using text::TextView;

namespace {

constexpr std::size_t textsSize = 8000; ///< of the packed texts in one file

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

Text call(TextView what, std::size_t number, TextView value) {
    Text text = "topicsmith(\"";
    append(text, what, "\",", value, ",", std::to_string(number), ");\n");
    return text;
}

SearchIndex indexOf(const model::TopicOutline& outline, const SiteMap& map,
                    const std::vector<Text>& texts) {
    SearchIndex index;
    for (int position = 1; position <= map.count(); ++position) {
        if (!map.hasPage(position)) {
            continue;
        }
        const auto page = static_cast<std::size_t>(position);
        index.add(page, map.at(position).title, true);
        for (const TextView keyword : generate::keywordsOf(outline.at(position))) {
            index.add(page, plainLine(keyword), true);
        }
        index.add(page, texts[page], false);
    }
    return index;
}

std::vector<Text> textsOf(const model::TopicOutline& outline, const SiteMap& map) {
    std::vector<Text> texts(static_cast<std::size_t>(map.count()) + 1);
    for (int position = 1; position <= map.count(); ++position) {
        if (map.hasPage(position)) {
            texts[static_cast<std::size_t>(position)] = plainText(outline.at(position).body);
        }
    }
    return texts;
}

} // namespace

SearchData::Packed SearchData::pack(const std::shared_future<Texts>& future) {
    const Texts& texts = future.get();
    const SearchTexts packing(texts);
    Packed packed = {{}, packing.table(), packing.split()};
    for (std::size_t page = 1; page < texts.size(); ++page) {
        const Text text = packing.packed(page);
        if (packed.files.empty() || packed.files.back().size + text.size() > textsSize) {
            packed.files.push_back({page, 0, {}});
        }
        TextsFile& file = packed.files.back();
        append(file.values, file.values.empty() ? "" : ",\n", scriptText(text));
        file.size += text.size();
    }
    return packed;
}

Text SearchData::directory(const std::vector<SearchIndex::Piece>& pieces,
                           const Packed& packed) const {
    Text value = "{letters:" + scriptText(ranges(workshop::wordLetters()))
                 + ",\njoined:" + scriptText(ranges(workshop::joinedScripts())) + ",\nwords:[";
    for (const SearchIndex::Piece& piece : pieces) {
        append(value, &piece == &pieces.front() ? "" : ",", scriptText(piece.first));
    }
    append(value, "],\ncount:", std::to_string(map_.count()), ",\ntexts:[");
    for (const TextsFile& file : packed.files) {
        append(value, &file == &packed.files.front() ? "" : ",", std::to_string(file.first));
    }
    constexpr SymbolSplit words = SearchIndex::split;
    append(value, "],\nsplits:[", std::to_string(words.alone), ",", std::to_string(words.pairs));
    append(value, ",", std::to_string(packed.split.alone), ",", std::to_string(packed.split.pairs),
           "]}");
    return value;
}

SearchData::SearchData(const model::TopicOutline& outline, const SiteMap& map)
    : outline_(outline), map_(map), texts_(std::async([this] { return textsOf(outline_, map_); })),
      packed_(std::async([texts = texts_] { return pack(texts); })) {}

std::vector<SiteFile> SearchData::take() {
    const Texts& texts = texts_.get();
    const std::size_t pageCount = texts.size() - 1;
    const std::vector<SearchIndex::Piece> pieces = indexOf(outline_, map_, texts).pieces(pageCount);
    const Packed packed = packed_.get();
    std::vector<SiteFile> files;
    files.push_back({"site/search.js", call("search", 0, directory(pieces, packed))});
    files.push_back({"site/parts.js", call("parts", 0, scriptText(packed.table))});
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        files.push_back(
            {"site/words/" + std::to_string(i) + ".js",
             call("words", i,
                  "[" + scriptText(pieces[i].words) + ",\n" + scriptText(pieces[i].pages) + "]")});
    }
    for (std::size_t i = 0; i < packed.files.size(); ++i) {
        files.push_back({"site/texts/" + std::to_string(i) + ".js",
                         call("texts", i, "[" + packed.files[i].values + "]")});
    }
    return files;
}

} // namespace web
