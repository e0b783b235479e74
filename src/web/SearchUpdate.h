#pragma once

#include "web/SearchIndex.h"
#include "web/SearchState.h"
#include "web/SiteFolder.h"
#include "web/TextPacker.h"

namespace web {

/// Changes a search that lies in the folder of a site where some of its pages have changed: reading
/// what is there takes less time than looking at every page. What it makes answers all questions as
/// a new one does; only its files are cut at other places, and its texts are packed with the
/// numbers that were good for the old ones.
class SearchUpdate {
public:
    /// `before` describes what lies in the folder.
    SearchUpdate(const SiteFolder& folder, const SearchState& before)
        : folder_(folder), state_(before) {}

    /// The pages, in their order; `index` has their words alone, `texts` is by page. False when the
    /// search has to be made anew.
    bool replace(const std::vector<std::size_t>& pages, const SearchIndex& index,
                 const std::vector<text::Text>& texts);

    const text::Text& letterCode() const { return letterCode_; }
    const std::vector<text::Text>& firstWords() const { return firstWords_; }

    /// The files of words and texts that are others now: numbers, and what they hold.
    const std::map<std::size_t, IndexPiece>& pieces() const { return pieces_; }
    const std::map<std::size_t, text::Text>& textFiles() const { return textFiles_; }

private:
    struct File {
        std::vector<IndexWord> words;
        bool isChanged = false;
    };

    bool readLetters();
    bool readWords();
    void removePages(const std::vector<std::size_t>& pages,
                     const std::vector<SearchIndex::Term>& terms);
    void addWords(const std::vector<SearchIndex::Term>& terms);
    bool writeWords();
    std::optional<text::Text> replaced(std::size_t file, const TextPacker& packer,
                                       const std::vector<std::size_t>& pages,
                                       const std::vector<text::Text>& texts) const;
    bool replaceTexts(const std::vector<std::size_t>& pages, const std::vector<text::Text>& texts);

    const SiteFolder& folder_;
    const SearchState& state_;
    text::Text letterCode_;
    LetterCode letters_;
    std::vector<File> files_;
    std::vector<text::Text> firstWords_;
    std::map<std::size_t, IndexPiece> pieces_;
    std::map<std::size_t, text::Text> textFiles_;
};

} // namespace web
