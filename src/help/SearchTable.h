#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace help {

/// The index for the full text search of a compiled help, "$FIftiMain", by whatever compiler.
/// Damaged parts are missing parts.
class SearchTable {
public:
    /// Nothing for bytes that are none.
    static std::optional<SearchTable> read(std::string bytes);

    std::uint64_t pages() const { return number(0x04, 4); } ///< in which words were looked for
    unsigned codePage() const { return static_cast<unsigned>(number(0x7A, 4)); }
    std::uint64_t leaves() const { return number(0x10, 4); }

    /// A word in texts or in titles.
    struct Entry {
        std::string_view word; ///< in the code page; for the time of the call
        bool isTitle = false;
        std::uint64_t pages = 0;
        std::uint64_t offset = 0; ///< of its places
        std::uint64_t size = 0;
    };

    /// Gives the entries of all words from `first` on, until `take` returns false. Words before it
    /// may come first. False when a part is damaged.
    bool walk(std::string_view first, const std::function<bool(const Entry&)>& take) const;

    /// Where the leaf lies in which a word is looked for; 0 for a word behind all others.
    std::uint64_t leafOf(std::string_view word) const;

    struct Leaf {
        std::uint64_t offset;
        std::string lastWord;
    };
    std::optional<std::vector<Leaf>> allLeaves() const; ///< nothing when one is damaged

    /// Goes from page to page of an entry.
    class PageReader {
    public:
        PageReader(const SearchTable& table, const Entry& entry);

        bool next(); ///< false at the end, or where it is damaged

        std::uint32_t topic = 0;
        std::vector<std::uint32_t> positions; ///< counted in words
        bool isDamaged = false;

    private:
        bool take(std::uint32_t& value, unsigned root);
        std::uint32_t nextBits() const;

        const SearchTable& table_;
        std::string_view bytes_;
        std::uint64_t left_;
        std::size_t bit_ = 0;
    };

private:
    explicit SearchTable(std::string bytes) : bytes_(std::move(bytes)) {}
    std::uint64_t number(std::uint64_t offset, std::size_t size) const;
    bool walkLeaf(std::uint64_t leaf, const std::function<bool(const Entry&)>& take,
                  bool& goesOn) const;

    std::string bytes_;
};

} // namespace help
