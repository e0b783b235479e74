#pragma once

#include <cstdint>
#include <filesystem>
#include <future>
#include <vector>

#include "text/Text.h"
#include "web/NumberTable.h"

namespace web {

inline constexpr text::TextView listPlace = "site/files.txt";

/// A file of a site, as a run has written it.
struct SiteEntry {
    std::uint64_t hash = 0; ///< of the contents
    std::uint64_t size = 0;
    std::int64_t time = 0; ///< when it was written

    bool operator==(const SiteEntry&) const = default;
};

/// The files of a site that the last run wrote. While other work goes on, a thread asks the system
/// whether they are still as they were: size and time tell, which is in billionths of a second, so
/// that a file which somebody else has written later differs.
class SiteList {
public:
    struct Line {
        text::TextView place;
        SiteEntry entry;
        bool isAsWritten = false; ///< known behind isAsWritten()
    };

    explicit SiteList(const std::filesystem::path& folder);

    /// Somebody else's file has the list's name.
    bool isForeign() const { return isForeign_; }

    const std::vector<Line>& lines() const { return lines_; } ///< in the list's order

    /// Null for a file that the last run did not write. Threads may ask at the same time.
    const SiteEntry* find(text::TextView place) const;

    /// Whether a file is there as the last run wrote it.
    bool isAsWritten(text::TextView place) const;

    using Entries = std::vector<std::pair<text::Text, SiteEntry>>; ///< sorted by place
    bool isSame(const Entries& entries) const;
    static text::Text format(const Entries& entries);

private:
    void read(text::TextView list);
    void lookAtFiles(const std::filesystem::path& folder);

    text::Text list_; ///< places are parts of it
    bool isForeign_ = false;
    NumberTable<text::TextView> numbers_;
    std::vector<Line> lines_;    ///< by number
    std::future<void> isLooked_; ///< the last member: it ends first
};

} // namespace web
