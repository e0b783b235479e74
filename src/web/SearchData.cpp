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

/// The texts of some pages that follow each other, and the number of the first.
struct TextsFile {
    std::size_t first = 0;
    std::size_t size = 0;
    Text values;
};

std::vector<TextsFile> packTexts(const SearchTexts& texts, std::size_t count) {
    std::vector<TextsFile> files;
    for (std::size_t page = 1; page < count; ++page) {
        const Text packed = texts.packed(page);
        if (files.empty() || files.back().size + packed.size() > textsSize) {
            files.push_back({page, 0, {}});
        }
        TextsFile& file = files.back();
        append(file.values, file.values.empty() ? "" : ",\n", scriptText(packed));
        file.size += packed.size();
    }
    return files;
}

Text directory(const std::vector<SearchIndex::Piece>& pieces, const std::vector<TextsFile>& files,
               SymbolSplit split, std::size_t pageCount) {
    Text value = "{letters:" + scriptText(ranges(workshop::wordLetters()))
                 + ",\njoined:" + scriptText(ranges(workshop::joinedScripts())) + ",\nwords:[";
    for (const SearchIndex::Piece& piece : pieces) {
        append(value, &piece == &pieces.front() ? "" : ",", scriptText(piece.first));
    }
    append(value, "],\ncount:", std::to_string(pageCount), ",\ntexts:[");
    for (const TextsFile& file : files) {
        append(value, &file == &files.front() ? "" : ",", std::to_string(file.first));
    }
    constexpr SymbolSplit words = SearchIndex::split;
    append(value, "],\nsplits:[", std::to_string(words.alone), ",", std::to_string(words.pairs));
    append(value, ",", std::to_string(split.alone), ",", std::to_string(split.pairs), "]}");
    return value;
}

} // namespace

std::vector<SiteFile> searchData(const model::TopicOutline& outline, const SiteMap& map) {
    SearchIndex index;
    std::vector<Text> texts(static_cast<std::size_t>(map.count()) + 1);
    for (int position = 1; position <= map.count(); ++position) {
        if (!map.hasPage(position)) {
            continue;
        }
        const auto page = static_cast<std::size_t>(position);
        const model::Topic& topic = outline.at(position);
        texts[page] = plainText(topic.body);
        index.add(page, map.at(position).title, true);
        for (const TextView keyword : generate::keywordsOf(topic)) {
            index.add(page, plainLine(keyword), true);
        }
        index.add(page, texts[page], false);
    }
    const SearchTexts packed(texts);
    const std::vector<SearchIndex::Piece> pieces = index.pieces(texts.size() - 1);
    const std::vector<TextsFile> textsFiles = packTexts(packed, texts.size());
    std::vector<SiteFile> files;
    files.push_back(
        {"site/search.js",
         call("search", 0, directory(pieces, textsFiles, packed.split(), texts.size() - 1))});
    files.push_back({"site/parts.js", call("parts", 0, scriptText(packed.table()))});
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        files.push_back(
            {"site/words/" + std::to_string(i) + ".js",
             call("words", i,
                  "[" + scriptText(pieces[i].words) + ",\n" + scriptText(pieces[i].pages) + "]")});
    }
    for (std::size_t i = 0; i < textsFiles.size(); ++i) {
        files.push_back({"site/texts/" + std::to_string(i) + ".js",
                         call("texts", i, "[" + textsFiles[i].values + "]")});
    }
    return files;
}

} // namespace web
