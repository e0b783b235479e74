#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "compile/PostingPool.h"
#include "workshop/SearchWords.h"

namespace compile {

/// The words of a help's pages while they are collected, and where they stand.
class SearchIndex {
public:
    explicit SearchIndex(unsigned codePage) : words_(codePage) {}

    /// Words that are not kept, one a line. To be called before pages are added.
    void leaveOut(std::string_view utf8);

    /// The words of a page, in UTF-8. `page` is larger than that of any page before. False when it
    /// has letters that the code page lacks, whose words readers cannot look for.
    bool addPage(std::uint32_t page, std::string_view html);

    /// Where a word stands: in titles or in texts.
    enum Context : std::uint8_t { body = 0, title = 1 };

    /// A word in one context.
    struct Entry {
        std::uint32_t text = 0; ///< place among all words
        std::uint8_t length = 0;
        Context context = body;
        std::uint32_t lastPage = 0; ///< counted from 1
        std::uint32_t lastPosition = 0;
        PostingPool::List places = {};
    };

    /// All entries in the order of words' bytes, those of bodies first. No pages can be added then.
    std::vector<const Entry*> sorted();

    std::string_view word(const Entry& entry) const {
        return std::string_view(texts_).substr(entry.text, entry.length);
    }

    std::size_t pages() const { return pages_; }

    /// Goes from one page of an entry to the next.
    class PageReader {
    public:
        PageReader(const SearchIndex& index, const Entry& entry);

        bool next(); ///< false at the end

        std::uint32_t page = 0;
        std::vector<std::uint32_t> positions; ///< ascending

    private:
        PostingPool::Reader reader_;
        std::uint64_t pending_ = 0; ///< what begins the next page; 0 at the end
    };

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0; ///< counted from 1; 0 for an empty slot
    };

    void add(std::string_view word, Context context, std::uint32_t position);
    Entry& entryOf(std::string_view word, Context context);
    void growSlots();

    workshop::SearchWords words_;
    std::unordered_set<std::string> leftOut_;
    std::size_t pages_ = 0;
    std::uint32_t page_ = 0;
    std::string texts_; ///< of all words, one behind the other
    std::vector<Entry> entries_;
    std::vector<Slot> slots_; ///< a power of two of them, the entries by their hashes
    PostingPool pool_;
};

} // namespace compile
