#include "compile/SourceFiles.h"

#include <algorithm>

#include "platform/FileState.h"
#include "platform/Files.h"
#include "platform/Unicode.h"
#include "text/Address.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "workshop/Encoding.h"

namespace compile {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view climb = "../";

/// Whether a path comes through one place twice, as links to folders above them make it.
bool goesInCircles(const fs::path& folder, const fs::path& path) {
    std::set<fs::path> passed;
    for (fs::path each = path.parent_path();; each = each.parent_path()) {
        if (!passed.insert(platform::realPath(each)).second) {
            return true;
        }
        if (each == folder || !each.has_relative_path()) {
            return false;
        }
    }
}

std::string_view folderOf(std::string_view relative) {
    return relative.substr(0, relative.rfind('/') + 1);
}

/// Names that the help keeps for its own tables.
bool isInternalName(std::string_view name) {
    return name.starts_with('#') || name.starts_with('$');
}

constexpr const char* internalNameText =
    "has a name that the help keeps for itself; it is left out";

} // namespace

SourceFiles::SourceFiles(Settings settings, Container& container, Messages& messages)
    : settings_(std::move(settings)), container_(container), messages_(messages),
      finder_(settings_.folder), otherFinder_(settings_.otherFolder) {}

std::size_t SourceFiles::fromProject(std::string_view path, const Place& place) {
    return packed(projectFile(path, place));
}

std::size_t SourceFiles::reserve(std::string_view path, const Place& place) {
    const std::size_t index = projectFile(path, place);
    if (index == none) {
        return none;
    }
    if (isInternalName(files_[index].name)) {
        messages_.warn({shown(files_[index].relative)}, internalNameText);
        return none;
    }
    files_[index].isReserved = true;
    return index;
}

std::size_t SourceFiles::packed(std::size_t index) {
    if (index != none && !files_[index].isReserved) {
        files_[index].isPacked = true;
    }
    return index;
}

std::size_t SourceFiles::projectFile(std::string_view path, const Place& place) {
    if (startsAtMachine(path) || splitAddress(path).isElsewhere) {
        messages_.warn(place, "\"" + std::string(path) + "\" is not a file of this machine");
        return none;
    }
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    if (path.find('%') != std::string_view::npos
        && !platform::isFile(finder_.findNative(platform::pathFromUtf8(slashed)))) {
        slashed = fromPercent(slashed);
    }
    const fs::path native = platform::pathFromUtf8(slashed);
    const std::string relative = text::plainPath(
        native.is_absolute()
            ? platform::utf8FromPath(native.lexically_normal().lexically_relative(settings_.folder))
            : slashed);
    if (relative.empty()) {
        return none;
    }
    if (relative.starts_with(climb)) {
        outside_.emplace(folderOf(relative));
    }
    return locate(relative, place);
}

/// A file by a path whose spelling may differ from that on the disk. A page's one has to lie, links
/// followed, within the folder that allows it.
std::size_t SourceFiles::locate(const std::string& relative, const Place& place,
                                const std::string* within) {
    const std::string key = caseKey(relative);
    auto known = known_.find(key);
    if (known == known_.end()) {
        known = known_.emplace(key, search(relative, within)).first;
    }
    if (known->second == none) {
        messages_.warn(place, "file not found: " + relative);
    } else {
        checkSpelling(relative, known->second, place);
    }
    return known->second;
}

std::size_t SourceFiles::search(const std::string& relative, const std::string* within) {
    const fs::path native = platform::pathFromUtf8(relative);
    const auto isThere = [&](text::FileFinder& finder, const fs::path& path) {
        return platform::isFile(path)
               && (within == nullptr
                   || isWithin(finder.findNative(platform::pathFromUtf8(*within)), path));
    };
    if (const fs::path path = finder_.findNative(native); isThere(finder_, path)) {
        return found(settings_.folder, path, relative);
    }
    if (!settings_.otherFolder.empty()) {
        if (const fs::path path = otherFinder_.findNative(native); isThere(otherFinder_, path)) {
            return found(settings_.otherFolder, path, relative);
        }
    }
    return none;
}

/// Links may lead pages to other places in the folder. As each way to a file is a name to pack it
/// under, ways in circles and all too many ones are none.
bool SourceFiles::isWithin(const fs::path& folder, const fs::path& path) {
    constexpr int mostNames = 64;
    const fs::path root = platform::realPath(folder);
    const fs::path real = platform::realPath(path);
    if (real == root / path.lexically_relative(folder)) {
        return true;
    }
    const fs::path below = real.lexically_relative(root);
    return !below.empty() && *below.begin() != ".." && !goesInCircles(folder, path)
           && ++linkedNames_[real] <= mostNames;
}

std::size_t SourceFiles::found(const fs::path& folder, const fs::path& path,
                               const std::string& asked) {
    std::string relative = platform::utf8FromPath(path.lexically_relative(folder));
    std::replace(relative.begin(), relative.end(), '\\', '/');
    relative = relative.empty() ? asked : relative;
    const auto [place, isNew] = onDisk_.emplace(relative, files_.size());
    if (isNew) {
        files_.push_back({path, relative, packedName(relative), text::isPageName(relative)});
    }
    return place->second;
}

/// Nothing can be packed above the help's own folder.
std::string SourceFiles::packedName(const std::string& relative) const {
    std::string name = relative;
    while (name.starts_with(climb)) {
        name.erase(0, climb.size());
    }
    return settings_.flat ? name.substr(name.rfind('/') + 1) : name;
}

void SourceFiles::checkSpelling(const std::string& relative, std::size_t index,
                                const Place& place) {
    const std::string& actual = files_[index].relative;
    if (relative == actual) {
        return;
    }
    const fs::path other = settings_.folder / platform::pathFromUtf8(relative);
    if (platform::isFile(other) && !platform::isSameFile(other, files_[index].path)) {
        messages_.warn(place, relative + " and " + actual
                                  + " differ in letter case only; the help can hold one of them");
    } else {
        messages_.note(place, relative + " is called " + actual);
    }
}

/// The bytes of "%20" and the like in their places, in whatever encoding they are.
std::string SourceFiles::fromPercent(std::string_view path) const {
    if (path.find('%') == std::string_view::npos) {
        return std::string(path);
    }
    return text::decodedSource(text::unescaped(path), settings_.codePage).utf8;
}

/// A page may not lead out of the project's folder on its own account: the folder, relative to
/// that, which allows a page the path; nothing when none does.
std::optional<std::string> SourceFiles::folderAllowing(std::string_view relative) const {
    if (!relative.starts_with(climb)) {
        return std::string();
    }
    for (std::string_view folder = folderOf(relative); !folder.empty();
         folder = folderOf(folder.substr(0, folder.size() - 1))) {
        if (outside_.contains(folder)) {
            const bool climbsOn = relative.substr(folder.size()).starts_with(climb);
            return climbsOn ? std::nullopt : std::optional<std::string>(folder);
        }
    }
    return {};
}

std::size_t SourceFiles::fromPage(std::size_t page, const std::string& path, const Place& place) {
    constexpr std::size_t drive = 1;
    if (path.find(':') == drive) {
        messages_.warn(place, "\"" + path + "\" is a place on the author's machine");
        return none;
    }
    const bool fromRoot = path.starts_with('/') || path.starts_with('\\');
    const std::string folder(fromRoot ? std::string_view() : folderOf(files_[page].relative));
    std::string link = folder + '\0' + path;
    if (const auto known = followed_.find(link); known != followed_.end()) {
        return packed(known->second);
    }
    const auto resolve = [&](const std::string& each) { return text::plainPath(folder + each); };
    std::string relative = resolve(fromPercent(path));
    const std::string literal = resolve(path); // a file may be called "100%25.htm"
    if (literal != relative && !known_.contains(caseKey(relative))
        && platform::isFile(finder_.findNative(platform::pathFromUtf8(literal)))) {
        relative = literal;
    }
    const auto within = folderAllowing(relative);
    if (!within) {
        messages_.warn(place, "\"" + path + "\" leads out of the project's folder");
        return none;
    }
    std::error_code ignored;
    if (relative.empty()
        || (path.find_last_of("/\\") + 1 == path.size()
            && fs::is_directory(finder_.findNative(platform::pathFromUtf8(relative)), ignored))) {
        return none; // a folder
    }
    const std::size_t target = packed(locate(relative, place, &*within));
    if (target != none && files_[target].relative == relative) { // and nothing was to be said
        followed_.emplace(std::move(link), target);
    }
    return target;
}

void SourceFiles::followAddresses(std::size_t index,
                                  const std::vector<workshop::PageText>& addresses,
                                  const std::string& base) {
    const std::string page = shown(files_[index].relative);
    for (const workshop::PageText& each : addresses) {
        const Address address = splitAddress(each.text);
        const Place place{page, each.line};
        if (address.isElsewhere) {
            if (text::startsWithIgnoringCase(each.text, "file:")) {
                messages_.warn(place, "\"" + each.text + "\" is a place on the author's machine");
            }
            continue;
        }
        const bool isHere = address.path.empty();
        const std::size_t target = isHere ? index : fromPage(index, base + address.path, place);
        if (target != none && !address.fragment.empty()) {
            wantAnchor(target, address.fragment, place);
        }
    }
}

void SourceFiles::wantAnchor(std::size_t file, const std::string& fragment, const Place& place) {
    wanted_.push_back({file, fragment, place});
}

void SourceFiles::checkAnchors() {
    std::unordered_map<std::size_t, std::unordered_set<std::string>> anchors; // of each page
    for (const WantedAnchor& each : wanted_) {
        const SourceFile& file = files_[each.file];
        if (!file.isPage) {
            continue;
        }
        const auto [known, isNew] = anchors.try_emplace(each.file);
        if (isNew) {
            for (const workshop::PageText& anchor : file.facts.anchors) {
                known->second.insert(anchor.text);
            }
        }
        if (!workshop::hasPlace(known->second, each.fragment, settings_.codePage)) {
            messages_.warn(each.place, file.relative + " has no place \"" + each.fragment + "\"");
        }
    }
    wanted_.clear();
}

bool SourceFiles::readAll(const std::stop_token& stop) {
    for (; next_ < files_.size(); ++next_) {
        if (stop.stop_requested()) {
            return false;
        }
        if (files_[next_].isPacked) {
            read(next_);
        }
    }
    return true;
}

void SourceFiles::read(std::size_t index) {
    const Place place{shown(files_[index].relative), 0};
    const std::string& name = files_[index].name;
    std::string bytes;
    if (const std::error_code error = platform::readFile(files_[index].path, bytes)) {
        messages_.warn(place, "cannot be read: " + error.message());
        files_[index].isPacked = false;
        return;
    }
    noteRead(files_[index].path);
    if (isInternalName(name)) {
        messages_.warn(place, internalNameText);
        files_[index].isPacked = false;
        return;
    }
    if (!container_.add("/" + name, bytes)) {
        messages_.warn(place, "its name in the help is too long or taken; it is left out");
        files_[index].isPacked = false;
        return;
    }
    if (files_[index].isPage) {
        readPageFile(index, bytes);
    } else if (text::hasEnding(name, ".css")) {
        followAddresses(index, workshop::readStyleSheet(bytes), {});
    }
}

void SourceFiles::readPageFile(std::size_t index, const std::string& bytes) {
    const std::string html = text::decodedPage(bytes, settings_.codePage);
    workshop::PageFacts facts = workshop::readPage(html);
    if (settings_.onPage) {
        settings_.onPage(index, html);
    }
    const Address base = splitAddress(facts.base);
    const auto addresses = std::exchange(facts.addresses, {});
    files_[index].facts = std::move(facts);
    if (!base.isElsewhere) {
        followAddresses(index, addresses, std::string(folderOf(base.path)));
    }
    for (const workshop::PageText& anchor : files_[index].facts.repeatedAnchors) {
        messages_.warn({shown(files_[index].relative), anchor.line},
                       "the place \"" + anchor.text + "\" is there already");
    }
}

void SourceFiles::noteRead(const fs::path& path) {
    if (const auto facts = platform::fileFacts(path)) {
        read_.push_back({facts->volume, facts->number});
        newest_ = std::max(newest_, std::chrono::sys_seconds(
                                        std::chrono::floor<std::chrono::seconds>(facts->written)));
    }
}

bool SourceFiles::hasRead(const fs::path& path) const {
    const auto facts = platform::fileFacts(path);
    return facts
           && std::find(read_.begin(), read_.end(), std::pair(facts->volume, facts->number))
                  != read_.end();
}

} // namespace compile
