#pragma once

#include <future>
#include <vector>

#include "model/TopicOutline.h"
#include "web/PlainTexts.h"
#include "web/SearchIndex.h"
#include "web/SearchState.h"
#include "web/SearchTexts.h"
#include "web/SiteFolder.h"
#include "web/SiteMap.h"

namespace web {

/// What the search of a site reads: a directory, and the words and the texts in pieces, of which it
/// loads those that a question needs. Most of it is made while the caller does something else.
/// Where few pages differ from those in the folder, only what they change is made.
class SearchData {
public:
    /// All must outlive this, and outline and map stay as they are.
    SearchData(const model::TopicOutline& outline, const SiteMap& map, const SiteFolder& folder);

    /// A number that is another one when the text of a page is.
    std::uint64_t hashOf(int page) const { return state_.pages[static_cast<std::size_t>(page)]; }

    /// Does a part of what the other thread has begun, where that is much.
    void shareWork();

    /// Adds the files to the folder.
    void addTo(SiteFolder& folder);

private:
    using Texts = std::vector<text::Text>; ///< by page
    struct Made {                          ///< in files by their numbers
        text::Text letterCode;
        std::vector<text::Text> firstWords;
        std::map<std::size_t, IndexPiece> pieces;
        std::map<std::size_t, text::Text> textFiles;
        std::optional<text::Text> table;
    };

    Texts textsOf(const std::vector<std::size_t>& pages) const;
    void addHeadings(SearchIndex& index, std::size_t page) const;
    bool differsLittle(const SearchState& before);
    bool update(const SearchState& before);
    void packAll();
    void packTexts(const SearchTexts& packing, const LetterCode& letters);
    void finish();
    text::Text directory() const;

    const model::TopicOutline& outline_;
    const SiteMap& map_;
    const SiteFolder& folder_;
    SearchState state_;
    std::vector<std::size_t> pages_;   ///< all that there are
    std::vector<std::size_t> changed_; ///< those that differ from what is in the folder
    PlainTexts texts_;
    Made made_;
    std::future<bool> isUpdated_;
    std::future<void> isPacked_;
};

// Where the files are.
inline constexpr text::TextView searchPlace = "site/search.js";
inline constexpr text::TextView partsPlace = "site/parts.js";
text::Text wordsPlace(std::size_t number);
text::Text textsPlace(std::size_t number);

} // namespace web
