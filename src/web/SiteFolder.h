#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "model/FileFailure.h"
#include "text/Text.h"

namespace web {

/// The folder of a site. A list in it says which files are the site's and how they were written:
/// files that did not change are not written again, those that are no longer wanted are removed,
/// and files of others are never touched.
class SiteFolder {
public:
    /// Reads the list. With `isClean`, nothing counts as written before.
    SiteFolder(std::filesystem::path folder, bool isClean);

    /// A file of the site, for writeAdded().
    void add(text::Text place, text::Text contents);

    /// The same for a copy of a file.
    void addCopy(text::Text place, std::filesystem::path source);

    /// Whether a file is there as the last run wrote it, as far as time and size tell.
    bool isAsWritten(const text::Text& place) const;

    /// What the last run wrote into a file; nothing when anything else is there.
    std::optional<text::Text> contentsOf(const text::Text& place) const;

    /// A file that is as written, and as it is to be.
    void keep(text::Text place);

    /// Writes what was added since the last call where it is not there yet. An interruption leaves
    /// a list of all files that may have been written.
    void writeAdded();

    /// Removes what is no longer wanted, and writes the list.
    void finish();

    int written() const { return written_; }
    int kept() const { return kept_; }
    int removed() const { return removed_; }
    model::FileFailures takeFailures() { return std::move(failures_); }

private:
    struct Entry {
        std::uint64_t hash = 0; ///< of the contents
        std::uint64_t size = 0;
        std::int64_t time = 0; ///< when it was written

        bool operator==(const Entry&) const = default;
    };
    using Entries = std::map<text::Text, Entry>;

    struct File {
        text::Text place;
        text::Text contents;
        std::filesystem::path source; ///< empty for one that is not copied
        bool isKept = false;          ///< is there as it is to be
        bool isOurs = false;          ///< may be written
    };

    void readList();
    void writeList(const Entries& entries);
    void claim();
    bool mayWrite(const text::Text& place, const std::filesystem::path& path);
    bool isThere(const text::Text& place) const;
    void write(File& file);
    std::optional<std::int64_t> writeContents(const File& file, const std::filesystem::path& path);
    bool isAsListed(const text::Text& place, const std::filesystem::path& path) const;
    bool staysInside(const std::filesystem::path& folder);
    void fail(const std::filesystem::path& path, std::string reason);
    void remove(const text::Text& place);
    void removeEmptyFolders(std::filesystem::path folder);

    std::filesystem::path folder_;
    std::vector<File> files_;
    bool isForeign_ = false; ///< somebody else's file has the list's name
    Entries before_;         ///< as the list had it; does not change, because other threads read it
    Entries claimed_;        ///< and what this run may write
    Entries now_;
    std::set<text::Text> keys_; ///< of what is there now, for systems that do not tell case apart
    std::map<std::filesystem::path, bool> staying_; ///< what staysInside() has found
    std::set<text::Text> there_; ///< keys of what its folders held when it looked at them
    model::FileFailures failures_;
    int written_ = 0;
    int kept_ = 0;
    int removed_ = 0;
};

} // namespace web
