#include "compile/SearchTable.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "compile/PlaceCode.h"
#include "compile/SearchNode.h"

namespace compile {

namespace {

constexpr std::size_t headerSize = 0x400;

/// The pages of an entry. Readers that know no contexts stop at a word's first entry, so that of
/// its texts also leads to the pages that have it in their titles only.
class EntryPages {
public:
    EntryPages(const SearchIndex& index, const SearchIndex::Entry& entry,
               const SearchIndex::Entry* titles)
        : own_(index, entry) {
        if (titles != nullptr) {
            titles_.emplace(index, *titles);
        }
    }

    /// Null at the end.
    const SearchIndex::PageReader* next() {
        if (!begun_ || last_ == &own_) {
            hasOwn_ = own_.next();
        }
        if (titles_ && (!begun_ || last_ == &*titles_)) {
            hasTitle_ = titles_->next();
        }
        while (hasTitle_ && hasOwn_ && titles_->page == own_.page) {
            hasTitle_ = titles_->next();
        }
        begun_ = true;
        const bool isTitle = hasTitle_ && (!hasOwn_ || titles_->page < own_.page);
        last_ = isTitle ? &*titles_ : hasOwn_ ? &own_ : nullptr;
        return last_;
    }

private:
    SearchIndex::PageReader own_;
    std::optional<SearchIndex::PageReader> titles_;
    const SearchIndex::PageReader* last_ = nullptr;
    bool begun_ = false, hasOwn_ = false, hasTitle_ = false;
};

class Writer {
public:
    Writer(SearchIndex& index, const SearchTableOptions& options)
        : index_(index), options_(options), entries_(index.sorted()) {}

    std::string write() {
        if (entries_.empty()) {
            return {};
        }
        measure();
        bytes_.assign(headerSize, '\0');
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            addEntry(i);
        }
        endLeaf();
        leaves_ = children_.size();
        for (depth_ = 1; children_.size() > 1; ++depth_) {
            addLevel();
        }
        writeHeader();
        return std::move(bytes_);
    }

private:
    struct Child {
        std::string lastWord;
        std::size_t offset;
    };

    std::string_view word(std::size_t i) const { return index_.word(*entries_[i]); }

    /// The entry of the same word in titles, which stands behind.
    const SearchIndex::Entry* titlesOf(std::size_t i) const {
        const bool has =
            i + 1 < entries_.size() && entries_[i]->context == SearchIndex::Context::body
            && entries_[i + 1]->context == SearchIndex::Context::title && word(i) == word(i + 1);
        return has ? entries_[i + 1] : nullptr;
    }

    template <typename Action>
    void forEachPage(std::size_t i, const Action& action) const {
        EntryPages pages(index_, *entries_[i], titlesOf(i));
        std::uint32_t before = 0;
        while (const SearchIndex::PageReader* page = pages.next()) {
            const std::uint32_t topic = options_.topics[page->page];
            action(topic, topic - before, page->positions);
            before = topic;
        }
    }

    using Positions = std::vector<std::uint32_t>;

    void measure();
    std::size_t encodePlaces(std::size_t i);
    void addEntry(std::size_t i);
    void endLeaf();
    void addLevel();
    void writeHeader();
    void set(std::size_t offset, std::size_t size, std::uint64_t number) {
        std::string bytes;
        appendNumber(bytes, number, static_cast<int>(size));
        bytes_.replace(offset, size, bytes);
    }

    SearchIndex& index_;
    const SearchTableOptions& options_;
    std::vector<const SearchIndex::Entry*> entries_;
    PlaceCode pages_, counts_, positions_;
    std::string bytes_;
    std::string places_; ///< of one entry
    SearchNode leaf_{8};
    std::size_t lastLeaf_ = 0; ///< its offset; 0 for none
    std::vector<Child> children_;
    std::size_t depth_ = 0;
    std::size_t leaves_ = 0;

    // What the header tells.
    std::uint32_t highestTopic_ = 0;
    std::uint64_t longest_ = 0, occurrences_ = 0, different_ = 0, unused_ = 0;
    std::uint64_t shortLengths_ = 0, longLengths_ = 0, entryLengths_ = 0;
};

/// Counts what there is to write, and reserves memory for it.
void Writer::measure() {
    constexpr std::size_t mostBehindWord = 24; // bytes of an entry
    constexpr std::size_t shortWord = 2;
    std::size_t size = headerSize + 4 * SearchNode::nodeSize;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        std::uint64_t count = 0;
        forEachPage(i, [&](std::uint32_t topic, std::uint32_t step, const Positions& positions) {
            pages_.count(step);
            counts_.count(static_cast<std::uint32_t>(positions.size()));
            std::uint32_t before = 0;
            for (const std::uint32_t position : positions) {
                positions_.count(position - before);
                before = position;
            }
            count += positions.size();
            ++size; // for the bits that fill the last byte
            highestTopic_ = std::max(highestTopic_, topic);
        });
        const std::size_t length = word(i).size();
        longest_ = std::max<std::uint64_t>(longest_, length);
        occurrences_ += count;
        different_ += i > 0 && word(i) == word(i - 1) ? 0U : 1U;
        (length > shortWord ? longLengths_ : shortLengths_) += count * length;
        entryLengths_ += length;
        size += length + mostBehindWord;
    }
    size += (pages_.choose() + counts_.choose() + positions_.choose()) / 8;
    bytes_.reserve(size + size / 32);
}

/// Returns the number of pages.
std::size_t Writer::encodePlaces(std::size_t i) {
    std::size_t count = 0;
    places_.clear();
    PlaceWriter writer(places_);
    forEachPage(i, [&](std::uint32_t, std::uint32_t step, const Positions& positions) {
        writer.put(step, pages_.root());
        writer.put(static_cast<std::uint32_t>(positions.size()), counts_.root());
        std::uint32_t before = 0;
        for (const std::uint32_t position : positions) {
            writer.put(position - before, positions_.root());
            before = position;
        }
        writer.align();
        ++count;
    });
    return count;
}

/// The places of words stand in front of the leaf that holds the words.
void Writer::addEntry(std::size_t i) {
    constexpr std::size_t offsetSize = 6;
    std::string count(1, static_cast<char>(entries_[i]->context));
    std::string size;
    appendLowFirst(count, encodePlaces(i));
    appendLowFirst(size, places_.size());
    std::string entry;
    if (!leaf_.begins(word(i), count.size() + offsetSize + size.size(), entry)) {
        endLeaf();
        leaf_.begins(word(i), 0, entry);
    }
    entry += count;
    append32(entry, bytes_.size());
    append16(entry, 0);
    entry += size;
    leaf_.add(word(i), entry);
    bytes_ += places_;
}

void Writer::endLeaf() {
    const std::size_t offset = bytes_.size();
    if (lastLeaf_ != 0) {
        set(lastLeaf_, 4, offset);
    }
    lastLeaf_ = offset;
    unused_ += leaf_.unused();
    children_.push_back({leaf_.lastWord(), offset});
    leaf_.moveTo(bytes_);
}

/// Nodes that lead to those of the level below by the last word of each.
void Writer::addLevel() {
    constexpr std::size_t addressSize = 6;
    const std::vector<Child> below = std::exchange(children_, {});
    SearchNode node(2);
    const auto end = [&] {
        unused_ += node.unused();
        children_.push_back({node.lastWord(), bytes_.size()});
        node.moveTo(bytes_);
    };
    std::string entry;
    for (const Child& child : below) {
        if (!node.begins(child.lastWord, addressSize, entry)) {
            end();
            node.begins(child.lastWord, addressSize, entry);
        }
        append32(entry, child.offset);
        append16(entry, 0);
        node.add(child.lastWord, entry);
    }
    end();
}

void Writer::writeHeader() {
    struct Field {
        std::size_t offset, size;
        std::uint64_t value;
    };
    const std::size_t root = bytes_.size() - SearchNode::nodeSize;
    const Field fields[] = {
        {0x02, 2, 0x28},
        {0x04, 4, index_.pages()},
        {0x08, 4, root},
        {0x10, 4, leaves_},
        {0x14, 4, root},
        {0x18, 2, depth_},
        {0x1A, 4, 7},
        {0x1E, 1, 2},
        {0x1F, 1, pages_.root()},
        {0x20, 1, 2},
        {0x21, 1, counts_.root()},
        {0x22, 1, 2},
        {0x23, 1, positions_.root()},
        {0x2E, 4, SearchNode::nodeSize},
        {0x32, 4, 1},
        {0x3E, 4, longest_},
        {0x42, 4, occurrences_},
        {0x46, 4, different_},
        {0x4A, 4, longLengths_},
        {0x4E, 4, shortLengths_},
        {0x52, 4, entryLengths_},
        {0x56, 4, unused_},
        {0x5E, 4, highestTopic_},
        {0x7A, 4, options_.codePage},
        {0x7E, 4, options_.language},
    };
    for (const Field& field : fields) {
        set(field.offset, field.size, field.value);
    }
    if (bytes_.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw std::bad_alloc(); // no reader could find its way
    }
}

} // namespace

std::string searchTable(SearchIndex& index, const SearchTableOptions& options) {
    return Writer(index, options).write();
}

} // namespace compile
