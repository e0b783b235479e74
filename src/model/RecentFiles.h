#pragma once

#include <deque>
#include <filesystem>
#include <string>

#include "text/Text.h"

namespace model {

/// A path as it stands in a menu, near 40 characters long: the beginning, "…" and the last one or
/// two components. UTF-8; both slashes separate components.
std::string shortenPath(const std::filesystem::path& path);

/// The project files used last, the newest first. Two paths with the same caption but for letter
/// case are one entry.
class RecentFiles {
public:
    static constexpr int maxFiles = 4;

    /// The path becomes the newest; the oldest falls out of a full list.
    void add(const std::filesystem::path& path);
    void remove(const std::filesystem::path& path);

    /// Slots run from 0, the newest, to count() - 1.
    int count() const { return static_cast<int>(entries_.size()); }
    const std::filesystem::path& path(int slot) const { return entry(slot).path; }
    const std::string& caption(int slot) const { return entry(slot).caption; }

private:
    struct Entry {
        std::filesystem::path path;
        std::string caption;
        text::Text key; ///< equal for captions that are the same but for letter case
    };

    static Entry entryOf(const std::filesystem::path& path);
    std::deque<Entry>::iterator find(const Entry& entry);
    const Entry& entry(int slot) const { return entries_[static_cast<std::size_t>(slot)]; }

    std::deque<Entry> entries_;
};

} // namespace model
