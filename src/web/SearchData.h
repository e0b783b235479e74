#pragma once

#include <future>
#include <vector>

#include "model/TopicOutline.h"
#include "web/SearchIndex.h"
#include "web/SiteMap.h"

namespace web {

struct SiteFile {
    text::Text place;
    text::Text contents;
};

/// What the search of a site reads: a directory, and the words and the texts in pieces, of which it
/// loads those that a question needs. Most of it is made while the caller does something else.
class SearchData {
public:
    /// Both must outlive this and stay as they are.
    SearchData(const model::TopicOutline& outline, const SiteMap& map);

    std::vector<SiteFile> take();

private:
    using Texts = std::vector<text::Text>; ///< by page
    /// The texts of some pages that follow each other, and the number of the first.
    struct TextsFile {
        std::size_t first = 0;
        std::size_t size = 0;
        text::Text values;
    };
    struct Packed {
        std::vector<TextsFile> files;
        text::Text table;
        SymbolSplit split;
    };

    static Packed pack(const std::shared_future<Texts>& texts);
    text::Text directory(const std::vector<SearchIndex::Piece>& pieces, const Packed& packed) const;

    const model::TopicOutline& outline_;
    const SiteMap& map_;
    std::shared_future<Texts> texts_;
    std::future<Packed> packed_;
};

} // namespace web
