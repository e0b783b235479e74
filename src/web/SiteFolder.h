#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "model/FileFailure.h"
#include "text/Text.h"
#include "web/SiteList.h"

namespace web {

/// The folder of a site. A list in it says which files are the site's and how they were written:
/// files that did not change are not written again, those that are no longer wanted are removed,
/// and files of others are never touched.
class SiteFolder {
public:
    /// With `isClean`, nothing counts as written before. The list, of this folder, is not owned.
    SiteFolder(std::filesystem::path folder, const SiteList& list, bool isClean);

    /// A file of the site, for writeAdded().
    void add(text::Text place, text::Text contents);

    /// The same for a copy of a file.
    void addCopy(text::Text place, std::filesystem::path source);

    /// Whether a file is there as the last run wrote it, as far as time and size tell.
    bool isAsWritten(text::TextView place) const;

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
    struct File {
        text::Text place;
        text::Text contents;
        std::filesystem::path source; ///< empty for one that is not copied
        bool isKept = false;          ///< is there as it is to be
        bool isOurs = false;          ///< may be written
    };

    void writeList(SiteList::Entries entries);
    void claim();
    bool mayWrite(const text::Text& place);
    bool isThere(const text::Text& place);
    void write(File& file);
    std::error_code writeContents(const File& file, const std::filesystem::path& path,
                                  std::int64_t& time);
    std::filesystem::path pathOf(text::TextView place) const;
    bool isNewKey(text::TextView place);
    bool staysInside(const text::Text& place);
    void fail(const std::filesystem::path& path, std::string reason);
    void remove(const SiteList::Line& line);
    void removeEmptyFolders(std::filesystem::path folder);

    std::filesystem::path folder_;
    bool isClean_;
    const SiteList& before_;
    std::vector<File> files_;
    std::set<text::Text> claimed_; ///< what this run may write, and the last one did not
    SiteList::Entries now_;
    std::deque<text::Text> keys_; ///< of what is there now, for systems that do not tell case apart
    NumberTable<text::TextView> keyNumbers_;
    std::map<text::Text, bool> staying_; ///< folders, and what staysInside() has found
    std::set<text::Text> looked_;        ///< folders that isThere() has looked at
    std::set<text::Text> there_;         ///< keys of what they held
    model::FileFailures failures_;
    int written_ = 0;
    int kept_ = 0;
    int removed_ = 0;
};

} // namespace web
