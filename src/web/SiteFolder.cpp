#include "web/SiteFolder.h"

#include <charconv>
#include <vector>

#include "generate/GeneratedFile.h"
#include "model/PagePath.h"
#include "platform/FileState.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "web/NumberTable.h"

namespace web {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

constexpr TextView listPlace = "site/files.txt";
constexpr const char* isForeign = "is there already, and is no file of this site";
constexpr TextView listTitle =
    "The files of this web site, which HTML Topicsmith writes and removes";

/// Takes a number and the tab behind it off the front of a line; false when there is none.
template <typename Number>
bool takeNumber(TextView& line, Number& number) {
    const char* end = line.data() + line.size();
    const auto [rest, error] = std::from_chars(line.data(), end, number);
    if (error != std::errc() || rest == end || *rest != '\t') {
        return false;
    }
    line.remove_prefix(static_cast<std::size_t>(rest - line.data()) + 1);
    return true;
}

/// Writes a file again. The old one stays whole until the new one takes its place, and keeps its
/// time when it is the same.
std::error_code exchange(const fs::path& path, TextView contents) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(path, error))) {
        fs::remove(path, error); // what it leads to is somebody else's
    }
    std::string old;
    if (!platform::readFile(path, old) && old == contents) {
        return {};
    }
    error = platform::replaceFile(path, contents, platform::Access::usual, platform::Arrival::some);
    return error == platform::FileError::folderIsClosed ? platform::writeFile(path, contents)
                                                        : error;
}

} // namespace

SiteFolder::SiteFolder(fs::path folder, bool isClean) : folder_(std::move(folder)) {
    readList();
    keys_.insert(model::pageKey(listPlace));
    claimed_ = before_;
    if (isClean) {
        for (auto& [place, entry] : before_) {
            remove(place);
        }
        removed_ = 0;
    }
}

/// The list may come from anywhere: it must not name files outside of the folder.
void SiteFolder::readList() {
    std::string list;
    const fs::path path = model::pagePath(folder_, listPlace);
    const bool isThere = !platform::readFile(path, list);
    isForeign_ = isThere && !list.starts_with(listTitle);
    if (!isThere || isForeign_) {
        return;
    }
    TextView rest = list;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        TextView line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        Entry entry;
        if (takeNumber(line, entry.hash) && takeNumber(line, entry.size)
            && takeNumber(line, entry.time) && model::pageNameFault(line).empty()) {
            before_.emplace(line, entry);
        }
    }
}

void SiteFolder::fail(const fs::path& path, std::string reason) {
    failures_.push_back({path, std::move(reason)});
}

bool SiteFolder::staysInside(const fs::path& folder) {
    const auto [found, isNew] = staying_.try_emplace(folder, true);
    if (isNew) {
        if (const std::error_code error = platform::createFolders(folder)) {
            generate::noteFailure(failures_, folder, error);
            found->second = false;
        } else if (platform::leadsOutOf(folder_, folder)) {
            fail(folder, "a link leads out of the site's folder; nothing was written there");
            found->second = false;
        }
        const Text place = text::displayText(folder.lexically_relative(folder_)) + '/';
        std::error_code error;
        for (fs::directory_iterator at(folder, error), end; !error && at != end;
             at.increment(error)) {
            there_.insert(model::pageKey((place == "./" ? "" : place)
                                         + text::displayText(at->path().filename())));
        }
    }
    return found->second;
}

/// False, and noted, for a file that is somebody else's.
bool SiteFolder::mayWrite(const Text& place, const fs::path& path) {
    if (!keys_.insert(model::pageKey(place)).second) {
        fail(path, "is the name of two files of the site");
        return false;
    }
    if (!staysInside(path.parent_path())) {
        return false;
    }
    std::error_code ignored;
    if (!before_.contains(place) && isThere(place)
        && fs::exists(fs::symlink_status(path, ignored))) {
        fail(path, isForeign);
        return false;
    }
    return true;
}

/// Whether a file may be there: asking the system for each would take as long as writing it.
bool SiteFolder::isThere(const Text& place) const {
    return there_.contains(model::pageKey(place));
}

bool SiteFolder::isAsListed(const Text& place, const fs::path& path) const {
    const auto listed = before_.find(place);
    const auto facts = platform::fileFacts(path);
    return listed != before_.end() && facts && facts->size == listed->second.size
           && facts->written.count() == listed->second.time;
}

bool SiteFolder::isAsWritten(const Text& place) const {
    return isAsListed(place, model::pagePath(folder_, place));
}

std::optional<Text> SiteFolder::contentsOf(const Text& place) const {
    const auto listed = before_.find(place);
    std::string contents;
    const bool isRead =
        listed != before_.end() && !platform::readFile(model::pagePath(folder_, place), contents);
    return isRead && contents.size() == listed->second.size
                   && hashOf(contents) == listed->second.hash
               ? std::optional(std::move(contents))
               : std::nullopt;
}

void SiteFolder::add(Text place, Text contents) {
    files_.push_back({std::move(place), std::move(contents), {}});
}

void SiteFolder::addCopy(Text place, fs::path source) {
    files_.push_back({std::move(place), {}, std::move(source)});
}

void SiteFolder::keep(Text place) {
    files_.push_back({std::move(place), {}, {}, true});
}

/// Before anything is written, the list names it: otherwise the files of a run that was interrupted
/// would be somebody else's for the next one.
void SiteFolder::claim() {
    bool isNew = false;
    for (File& file : files_) {
        file.isOurs = mayWrite(file.place, model::pagePath(folder_, file.place));
        isNew = (file.isOurs && claimed_.try_emplace(file.place).second) || isNew;
    }
    if (isNew) {
        writeList(claimed_);
    }
}

void SiteFolder::write(File& file) {
    const fs::path path = model::pagePath(folder_, file.place);
    const auto found = before_.find(file.place);
    const Entry listed = found != before_.end() ? found->second : Entry();
    Entry entry = {hashOf(file.contents), file.contents.size()};
    std::error_code error;
    if (!file.source.empty()) { // one that has the same time and size is the same
        const auto facts = platform::fileFacts(file.source);
        entry.hash = facts ? static_cast<std::uint64_t>(facts->written.count()) : 0;
        entry.size = facts ? facts->size : 0;
    }
    now_[file.place] = listed;
    if (file.isKept
        || (listed.hash == entry.hash && listed.size == entry.size
            && isAsListed(file.place, path))) {
        ++kept_;
        return;
    }
    if (!file.source.empty()) {
        error = platform::readFile(file.source, file.contents);
        generate::noteFailure(failures_, file.source, error);
    }
    if (const auto time = error ? std::nullopt : writeContents(file, path)) {
        now_[file.place] = {entry.hash, file.contents.size(), *time};
        ++written_;
    }
    file.contents = {};
}

/// Returns when it was written.
std::optional<std::int64_t> SiteFolder::writeContents(const File& file, const fs::path& path) {
    platform::FileFacts facts;
    std::error_code error = std::make_error_code(std::errc::file_exists);
    if (!isThere(file.place)) {
        error = platform::createFile(path, file.contents, facts);
    }
    if (error == std::errc::file_exists && before_.contains(file.place)) {
        error = exchange(path, file.contents);
        facts = platform::fileFacts(path).value_or(facts);
    }
    if (error == std::errc::file_exists) {
        now_.erase(file.place); // somebody else was quicker
    }
    generate::noteFailure(failures_, path, error);
    return error ? std::nullopt : std::optional<std::int64_t>(facts.written.count());
}

/// One that somebody has changed since is theirs.
void SiteFolder::remove(const Text& place) {
    const fs::path path = model::pagePath(folder_, place);
    std::error_code error;
    if (!isAsListed(place, path) || platform::leadsOutOf(folder_, path)) {
        return;
    }
    fs::remove(path, error);
    generate::noteFailure(failures_, path, error);
    removed_ += error ? 0 : 1;
    removeEmptyFolders(path.parent_path());
}

void SiteFolder::removeEmptyFolders(fs::path folder) {
    std::error_code error;
    while (folder != folder_ && fs::is_empty(folder, error) && !error) {
        fs::remove(folder, error);
        folder = folder.parent_path();
    }
}

void SiteFolder::writeList(const Entries& entries) {
    Text list(listTitle);
    list += '\n';
    for (const auto& [place, entry] : entries) {
        text::append(list, std::to_string(entry.hash), "\t", std::to_string(entry.size), "\t",
                     std::to_string(entry.time), "\t", place, "\n");
    }
    const fs::path path = model::pagePath(folder_, listPlace);
    if (staysInside(path.parent_path())) {
        generate::noteFailure(failures_, path, platform::writeFile(path, list));
    }
}

void SiteFolder::writeAdded() {
    if (!isForeign_) {
        claim();
        for (File& file : files_) {
            if (file.isOurs) {
                write(file);
            }
        }
    }
    files_.clear();
}

void SiteFolder::finish() {
    if (isForeign_) {
        fail(model::pagePath(folder_, listPlace), "is there already, and is no list of a site");
        return;
    }
    for (const auto& [place, entry] : claimed_) {
        if (!now_.contains(place) && !keys_.contains(model::pageKey(place))) {
            remove(place);
        }
    }
    if (now_ != claimed_) {
        writeList(now_);
    }
}

} // namespace web
