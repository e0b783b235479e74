#include "web/SiteFolder.h"

#include <algorithm>

#include "generate/GeneratedFile.h"
#include "model/PagePath.h"
#include "platform/ContentsHash.h"
#include "platform/FileState.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace web {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

constexpr const char* isForeign = "is there already, and is no file of this site";

/// Of a file, with the slash behind it; empty for the site's own folder.
TextView folderOf(TextView place) {
    return place.substr(0, place.rfind('/') + 1);
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

SiteFolder::SiteFolder(fs::path folder, const SiteList& list, bool isClean)
    : folder_(std::move(folder)), isClean_(isClean), before_(list) {
    before_.wait();
    isNewKey(listPlace);
    if (isClean) {
        for (const SiteList::Line& line : before_.lines()) {
            remove(line);
        }
        removed_ = 0;
    }
}

fs::path SiteFolder::pathOf(TextView place) const {
    return model::pagePath(folder_, place);
}

/// Whether this is the first file of that name, however it is spelt.
bool SiteFolder::isNewKey(TextView place) {
    const Text key = model::pageKey(place);
    const auto [number, isNew] = keyNumbers_.numberOf(key);
    if (isNew) {
        keyNumbers_.moveKey(number, keys_.emplace_back(key));
    }
    return isNew;
}

void SiteFolder::fail(const fs::path& path, std::string reason) {
    failures_.push_back({path, std::move(reason)});
}

/// Whether a file's folder is one of the site's; makes it where it is missing.
bool SiteFolder::staysInside(const Text& place) {
    const auto [found, isNew] = staying_.try_emplace(Text(folderOf(place)), true);
    if (isNew) {
        const fs::path folder = pathOf(place).parent_path();
        if (const std::error_code error = platform::createFolders(folder)) {
            generate::noteFailure(failures_, folder, error);
            found->second = false;
        } else if (platform::leadsOutOf(folder_, folder)) {
            fail(folder, "a link leads out of the site's folder; nothing was written there");
            found->second = false;
        }
    }
    return found->second;
}

/// False, and noted, for a file that is somebody else's.
bool SiteFolder::mayWrite(const Text& place) {
    if (!isNewKey(place)) {
        fail(pathOf(place), "is the name of two files of the site");
        return false;
    }
    if (!staysInside(place)) {
        return false;
    }
    std::error_code ignored;
    if (before_.find(place) == nullptr && isThere(place)
        && fs::exists(fs::symlink_status(pathOf(place), ignored))) {
        fail(pathOf(place), isForeign);
        return false;
    }
    return true;
}

/// Whether a file may be there: asking the system for each would take as long as writing it.
bool SiteFolder::isThere(const Text& place) {
    const Text folder(folderOf(place));
    if (looked_.insert(folder).second) {
        std::error_code error;
        for (fs::directory_iterator at(pathOf(place).parent_path(), error), end;
             !error && at != end; at.increment(error)) {
            there_.insert(model::pageKey(folder + text::displayText(at->path().filename())));
        }
    }
    return there_.contains(model::pageKey(place));
}

bool SiteFolder::isAsWritten(TextView place) const {
    const SiteList::Line* const line = isClean_ ? nullptr : before_.find(place);
    return line != nullptr && line->isAsWritten;
}

std::optional<Text> SiteFolder::contentsOf(const Text& place) const {
    const SiteList::Line* const listed = before_.find(place);
    std::string contents;
    const bool isRead =
        !isClean_ && listed != nullptr && !platform::readFile(pathOf(place), contents);
    return isRead && contents.size() == listed->entry.size
                   && platform::contentsHash(contents) == listed->entry.hash
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
    const std::size_t known = claimed_.size();
    for (File& file : files_) {
        file.isOurs = mayWrite(file.place);
        if (file.isOurs && before_.find(file.place) == nullptr) {
            claimed_.insert(file.place);
        }
    }
    if (claimed_.size() > known) {
        SiteList::Entries entries;
        for (const SiteList::Line& line : before_.lines()) {
            entries.emplace_back(line.place, line.entry);
        }
        for (const Text& place : claimed_) {
            entries.emplace_back(place, SiteEntry());
        }
        writeList(std::move(entries));
    }
}

void SiteFolder::write(File& file) {
    const SiteList::Line* const found = before_.find(file.place);
    const SiteEntry listed = found != nullptr ? found->entry : SiteEntry();
    SiteEntry entry = {platform::contentsHash(file.contents), file.contents.size()};
    std::error_code error;
    if (!file.source.empty()) { // one that has the same time and size is the same
        const auto facts = platform::fileFacts(file.source);
        entry.hash = facts ? static_cast<std::uint64_t>(facts->written.count()) : 0;
        entry.size = facts ? facts->size : 0;
    }
    if (file.isKept
        || (listed.hash == entry.hash && listed.size == entry.size && isAsWritten(file.place))) {
        now_.emplace_back(std::move(file.place), listed);
        ++kept_;
        return;
    }
    if (!file.source.empty()) {
        error = platform::readFile(file.source, file.contents);
        generate::noteFailure(failures_, file.source, error);
    }
    if (!error) {
        const fs::path path = pathOf(file.place);
        error = writeContents(file, path, entry.time);
        generate::noteFailure(failures_, path, error);
    }
    entry.size = file.contents.size();
    if (error != std::errc::file_exists) { // somebody else was quicker
        now_.emplace_back(std::move(file.place), error ? listed : entry);
    }
    written_ += error ? 0 : 1;
    file.contents = {};
}

/// Tells when it was written.
std::error_code SiteFolder::writeContents(const File& file, const fs::path& path,
                                          std::int64_t& time) {
    platform::FileFacts facts;
    std::error_code error = platform::createFile(path, file.contents, facts);
    if (error == std::errc::file_exists && before_.find(file.place) != nullptr) {
        error = exchange(path, file.contents);
        facts = platform::fileFacts(path).value_or(facts);
    }
    time = facts.written.count();
    return error;
}

/// One that somebody has changed since is theirs.
void SiteFolder::remove(const SiteList::Line& line) {
    const fs::path path = pathOf(line.place);
    if (!line.isAsWritten || platform::leadsOutOf(folder_, path)) {
        return;
    }
    std::error_code error;
    const bool isRemoved = fs::remove(path, error);
    generate::noteFailure(failures_, path, error);
    if (isRemoved) {
        ++removed_;
        removeEmptyFolders(path.parent_path());
    }
}

void SiteFolder::removeEmptyFolders(fs::path folder) {
    std::error_code error;
    while (folder != folder_ && fs::is_empty(folder, error) && !error) {
        fs::remove(folder, error);
        folder = folder.parent_path();
    }
}

void SiteFolder::writeList(SiteList::Entries entries) {
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    const fs::path path = pathOf(listPlace);
    const bool isThere = claimed_.empty() && before_.isSame(entries);
    if (!isThere && staysInside(Text(listPlace))) {
        generate::noteFailure(failures_, path,
                              platform::writeFile(path, SiteList::format(entries)));
    }
}

void SiteFolder::writeAdded() {
    if (!before_.isForeign()) {
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
    if (before_.isForeign()) {
        fail(pathOf(listPlace), "is there already, and is no list of a site");
        return;
    }
    for (const SiteList::Line& line : before_.lines()) {
        if (!keyNumbers_.find(model::pageKey(line.place))) {
            remove(line);
        }
    }
    writeList(std::move(now_));
}

} // namespace web
