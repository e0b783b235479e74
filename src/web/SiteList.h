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

/// The files of a site that the last run wrote. A thread reads the list, and asks the system
/// whether they are still as they were, while others load the project. Size and time tell, which is
/// in billionths of a second, so that a file which somebody else has written later differs; one
/// that is written while this run goes on would not be seen by a later look either.
class SiteList {
public:
    struct Line {
        text::TextView place;
        SiteEntry entry;
        bool isAsWritten = false; ///< the file is there, and nobody else has changed it
    };

    /// Begins to read it.
    explicit SiteList(std::filesystem::path folder);

    /// To be called before all that follows, which any thread may call then.
    void wait() const { isRead_.wait(); }

    /// Somebody else's file has the list's name.
    bool isForeign() const { return isForeign_; }

    const std::vector<Line>& lines() const { return lines_; } ///< in the list's order

    /// Null for a file that the last run did not write.
    const Line* find(text::TextView place) const;

    using Entries = std::vector<std::pair<text::Text, SiteEntry>>; ///< sorted by place
    bool isSame(const Entries& entries) const;
    static text::Text format(const Entries& entries);

private:
    void read(const std::filesystem::path& folder);
    void readLines();
    void lookAtFiles(const std::filesystem::path& folder);

    text::Text list_; ///< places are parts of it
    bool isForeign_ = false;
    NumberTable<text::TextView> numbers_;
    std::vector<Line> lines_;  ///< by number
    std::future<void> isRead_; ///< the last member: it ends first
};

} // namespace web
