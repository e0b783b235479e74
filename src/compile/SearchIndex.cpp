#include "compile/SearchIndex.h"

#include <algorithm>
#include <stdexcept>

#include "text/HtmlReader.h"

namespace compile {

namespace {

std::uint32_t hashOf(std::string_view word, std::uint32_t seed) {
    constexpr std::uint32_t start = 2166136261U;
    constexpr std::uint32_t prime = 16777619U;
    std::uint32_t hash = start + seed;
    for (const char each : word) {
        hash = (hash ^ static_cast<unsigned char>(each)) * prime;
    }
    return hash ^ hash >> 15U;
}

/// The first eight bytes, so that most comparisons look no further.
std::uint64_t beginningOf(std::string_view word) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
        number = number << 8U | (i < word.size() ? static_cast<unsigned char>(word[i]) : 0U);
    }
    return number;
}

} // namespace

void SearchIndex::leaveOut(std::string_view utf8) {
    words_.read(utf8, false,
                [this](const workshop::SearchWord& word) { leftOut_.emplace(word.bytes); });
}

bool SearchIndex::addPage(std::uint32_t page, std::string_view html) {
    page_ = page + 1;
    ++pages_;
    words_.hasLost = false;
    std::string resolved;
    Context context = body;
    const workshop::SearchWords::Take take = [&](const workshop::SearchWord& word) {
        add(word.bytes, context, word.position);
    };
    const auto readText = [&](std::string_view piece, bool behindTag) {
        if (piece.find('&') != std::string_view::npos) {
            piece = resolved = text::resolvedReferences(piece);
        }
        words_.read(piece, behindTag, take);
    };
    // The title's words are counted first, wherever it stands.
    words_.position = 0;
    std::size_t titleAt = std::string_view::npos;
    for (text::HtmlReader reader(html); reader.next();) {
        if (reader.opens("title")) {
            titleAt = reader.offset();
            context = title;
            for (bool inTitle = reader.next(); inTitle && reader.isText();
                 inTitle = reader.next()) {
                readText(reader.text(), true);
            }
            break;
        }
    }
    context = body;
    bool inTitle = false;
    bool behindTag = false;
    for (text::HtmlReader reader(html); reader.next();) {
        if (!reader.isText()) {
            inTitle = reader.opens("title") && reader.offset() == titleAt;
        } else if (!inTitle) {
            readText(reader.text(), behindTag);
        }
        behindTag = !reader.isText();
    }
    return !words_.hasLost;
}

void SearchIndex::add(std::string_view word, Context context, std::uint32_t position) {
    if (!leftOut_.empty() && leftOut_.contains(std::string(word))) {
        return;
    }
    Entry& entry = entryOf(word, context);
    if (entry.lastPage != page_) {
        pool_.append(entry.places, std::uint64_t(page_ - entry.lastPage) << 1U | 1U);
        pool_.append(entry.places, position);
    } else if (position > entry.lastPosition) {
        pool_.append(entry.places, std::uint64_t(position - entry.lastPosition) << 1U);
    } else {
        return; // both forms of a word are the same
    }
    entry.lastPage = page_;
    entry.lastPosition = position;
}

SearchIndex::Entry& SearchIndex::entryOf(std::string_view word, Context context) {
    if (entries_.size() * 2 >= slots_.size()) {
        growSlots();
    }
    const std::uint32_t hash = hashOf(word, context);
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    for (; slots_[at].entry != 0; at = (at + 1) & mask) {
        Entry& entry = entries_[slots_[at].entry - 1];
        if (slots_[at].hash == hash && entry.context == context && this->word(entry) == word) {
            return entry;
        }
    }
    if (texts_.size() + word.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw std::bad_alloc();
    }
    Entry entry;
    entry.text = static_cast<std::uint32_t>(texts_.size());
    entry.length = static_cast<std::uint8_t>(word.size());
    entry.context = context;
    texts_ += word;
    entries_.push_back(entry);
    slots_[at] = {hash, static_cast<std::uint32_t>(entries_.size())};
    return entries_.back();
}

void SearchIndex::growSlots() {
    constexpr std::size_t least = 4096;
    std::vector<Slot> larger(std::max(least, slots_.size() * 2));
    const std::size_t mask = larger.size() - 1;
    for (const Slot& slot : slots_) {
        if (slot.entry != 0) {
            std::size_t at = slot.hash & mask;
            while (larger[at].entry != 0) {
                at = (at + 1) & mask;
            }
            larger[at] = slot;
        }
    }
    slots_ = std::move(larger);
}

std::vector<const SearchIndex::Entry*> SearchIndex::sorted() {
    slots_ = {};
    struct Key {
        std::uint64_t beginning;
        const Entry* entry;
    };
    std::vector<Key> keys;
    keys.reserve(entries_.size());
    for (const Entry& entry : entries_) {
        keys.push_back({beginningOf(word(entry)), &entry});
    }
    std::sort(keys.begin(), keys.end(), [this](const Key& a, const Key& b) {
        if (a.beginning != b.beginning) {
            return a.beginning < b.beginning;
        }
        const int order = word(*a.entry).compare(word(*b.entry));
        return order != 0 ? order < 0 : a.entry->context < b.entry->context;
    });
    std::vector<const Entry*> entries;
    entries.reserve(keys.size());
    for (const Key& key : keys) {
        entries.push_back(key.entry);
    }
    return entries;
}

SearchIndex::PageReader::PageReader(const SearchIndex& index, const Entry& entry)
    : reader_(index.pool_, entry.places), pending_(reader_.atEnd() ? 0 : reader_.next()) {
    page = static_cast<std::uint32_t>(-1);
}

bool SearchIndex::PageReader::next() {
    if (pending_ == 0) {
        return false;
    }
    page += static_cast<std::uint32_t>(pending_ >> 1U);
    pending_ = 0;
    positions.assign(1, static_cast<std::uint32_t>(reader_.next()));
    while (!reader_.atEnd()) {
        const std::uint64_t number = reader_.next();
        if ((number & 1U) != 0) {
            pending_ = number;
            break;
        }
        positions.push_back(positions.back() + static_cast<std::uint32_t>(number >> 1U));
    }
    return true;
}

} // namespace compile
