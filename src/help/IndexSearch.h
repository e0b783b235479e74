#pragma once

#include <memory>

#include "help/ChmFacts.h"
#include "help/HelpSearch.h"
#include "help/SearchTable.h"
#include "workshop/SearchWords.h"

namespace help {

/// Answers questions from the index that a help holds for its full text search, without reading
/// its pages.
class IndexSearch {
public:
    /// Null for a help without an index, or with one that leaves pages out: some compilers do.
    static std::unique_ptr<IndexSearch> open(const ChmFile& file, const ChmFacts& facts,
                                             std::size_t pages);

    struct Answer {
        std::uint32_t topic = 0; ///< a row of the help's table
        int score = 0;
    };

    /// The pages that answer a question, in the order of the table. Nothing when only the pages
    /// themselves can tell: the index holds words, and no other characters.
    std::optional<std::vector<Answer>> find(const HelpQuestion& question);

private:
    /// The words of a term; those behind the first one stand at a distance from it.
    struct Slot {
        std::string word;
        std::uint32_t distance = 0;
    };
    using Slots = std::vector<Slot>;

    /// In which topics a term stands.
    struct Found {
        int count = 0;
        bool isInTitle = false;
    };
    using FoundTopics = std::vector<Found>; ///< by topic

    IndexSearch(SearchTable table, std::size_t topics, bool hasAllForms);
    std::optional<FoundTopics> findTerm(const SearchTerm& term);
    bool isWordCharacter(std::string_view utf8);
    void walkWords(const std::string& word, bool isWhole,
                   const std::function<void(const SearchTable::Entry&)>& take) const;
    bool findSlots(const Slots& slots, bool isWhole, FoundTopics& found) const;
    void findWord(const std::string& word, bool isWhole, FoundTopics& found) const;
    void findPhrase(const Slots& slots, bool isWhole, bool onlyTitles, FoundTopics& found) const;

    SearchTable table_;
    workshop::SearchWords words_;
    std::size_t topics_;
    bool hasAllForms_; ///< words in small letters, too
};

} // namespace help
