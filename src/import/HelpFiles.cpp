#include "import/HelpFiles.h"

#include <algorithm>

#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "workshop/PageFacts.h"

namespace importer {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

constexpr int mostTries = 100;

Text lowerEnding(TextView path) {
    const std::size_t point = path.find_last_of("./");
    return point == TextView::npos || path[point] == '/' ? Text()
                                                         : text::lowerAscii(path.substr(point));
}

bool isPicture(TextView path) {
    constexpr TextView endings[] = {".gif", ".png", ".jpg", ".jpeg",
                                    ".bmp", ".svg", ".ico", ".webp"};
    return std::find(std::begin(endings), std::end(endings), lowerEnding(path))
           != std::end(endings);
}

/// What would be taken for a project, or for what generation writes.
bool isOfProject(TextView path) {
    constexpr TextView endings[] = {".tsp", ".hhp", ".hhc",  ".hhk",
                                    ".chm", ".htm", ".html", ".xhtml"};
    return std::find(std::begin(endings), std::end(endings), lowerEnding(path))
           != std::end(endings);
}

/// A workshop's project may take files from above its folder.
TextView withoutClimbing(TextView path) {
    constexpr TextView climb = "../";
    while (path.starts_with(climb)) {
        path.remove_prefix(climb.size());
    }
    return path;
}

/// Another name for another try: "a.png", "a 2.png".
Text numbered(TextView path, int number) {
    const std::size_t ending = path.size() - lowerEnding(path).size();
    Text name(path.substr(0, ending));
    if (number > 1) {
        text::append(name, " ", std::to_string(number));
    }
    return name.append(path.substr(ending));
}

} // namespace

TextView fileNameFault(TextView path) {
    if (!model::pageNameFault(path).empty()) {
        return "its name does not stay inside the project's folder, or is none of a file";
    }
    if (path.starts_with('.') || path.find("/.") != TextView::npos
        || path.find("\\.") != TextView::npos) {
        return "its name is that of a hidden file or folder";
    }
    return isOfProject(path) ? "its name is one of a project's own files" : TextView();
}

HelpFiles::HelpFiles(const HelpSource& source, fs::path folder)
    : source_(source), folder_(std::move(folder)) {}

void HelpFiles::fail(const Text& path, std::string reason) {
    failures_.push_back({platform::pathFromUtf8(path), std::move(reason)});
}

std::optional<Text> HelpFiles::place(const Text& path) {
    if (const auto known = places_.find(path); known != places_.end()) {
        return known->second;
    }
    auto placed = isPicture(path) ? placePicture(path) : placeWithItsFiles(path);
    return places_[path] = std::move(placed);
}

/// Nothing, or the same, is there; no part of the way leads to another place.
bool HelpFiles::isFree(const Text& place, std::string_view bytes) {
    const fs::path file = folder_ / platform::pathFromUtf8(place);
    std::error_code error;
    if (!fs::exists(fs::symlink_status(file, error))) {
        return true;
    }
    std::string there;
    return !platform::leadsOutOf(folder_, file) && !platform::readFile(file, there, bytes.size())
           && there == bytes;
}

bool HelpFiles::store(const Text& path, const Text& place, std::string_view bytes) {
    const fs::path file = folder_ / platform::pathFromUtf8(place);
    std::error_code error;
    for (fs::path above = file.parent_path(); above != folder_; above = above.parent_path()) {
        const bool isThere = fs::exists(fs::symlink_status(above, error));
        if (isThere && (platform::leadsOutOf(folder_, above) || !fs::is_directory(above, error))) {
            fail(path, "the folder for it is a link, or no folder");
            return false;
        }
    }
    if (fs::exists(file, error)) {
        return true; // the same, as isFree() has seen
    }
    error = platform::createFolders(file.parent_path());
    if (!error) {
        error = platform::writeFile(file, bytes);
    }
    if (error) {
        fail(path, error.message());
        return false;
    }
    ++written_;
    return true;
}

bool HelpFiles::write(const Text& place, std::string_view bytes) {
    return isFree(place, bytes) && store(place, place, bytes);
}

std::optional<Text> HelpFiles::placePicture(const Text& path) {
    std::vector<Part> parts;
    if (!collect(path, parts)) {
        return {};
    }
    const Text folder = Text(model::imageFolderName) + '/';
    const Text& old = parts.front().place;
    const bool isThere = text::startsWithIgnoringCase(old, folder);
    const Text name = isThere ? old.substr(folder.size()) : old.substr(old.rfind('/') + 1);
    for (int i = 1; i <= mostTries; ++i) {
        const Text place = folder + numbered(name, i);
        if (isFree(place, parts.front().bytes)) {
            return store(path, place, parts.front().bytes) ? std::optional(place) : std::nullopt;
        }
    }
    fail(path, "other files have all its names");
    return {};
}

/// The file and those that it names as a style sheet, which have to lie as they lay.
std::optional<Text> HelpFiles::placeWithItsFiles(const Text& path) {
    std::vector<Part> parts;
    if (!collect(path, parts)) {
        return {};
    }
    for (int i = 0; i < mostTries; ++i) {
        const Text folder = i == 0 ? Text() : numbered("imported", i) + '/';
        const bool areFree = std::all_of(parts.begin(), parts.end(), [&](const Part& part) {
            return isFree(folder + part.place, part.bytes);
        });
        if (!areFree) {
            continue;
        }
        bool isStored = false;
        for (const Part& part : parts) {
            const bool done = store(part.path, folder + part.place, part.bytes);
            isStored = part.path == path ? done : isStored;
        }
        return isStored ? std::optional(folder + parts.front().place) : std::nullopt;
    }
    fail(path, "other files have all its names");
    return {};
}

std::uint64_t HelpFiles::collected(const std::vector<Part>& parts) {
    std::uint64_t total = 0;
    for (const Part& part : parts) {
        total += part.bytes.size();
    }
    return total;
}

/// False when the file itself cannot be had.
bool HelpFiles::collect(const Text& path, std::vector<Part>& parts) {
    constexpr std::size_t mostParts = 200;
    const bool isKnown = std::any_of(parts.begin(), parts.end(),
                                     [&path](const Part& part) { return part.path == path; });
    if (isKnown || parts.size() >= mostParts) {
        return true;
    }
    const Text place(withoutClimbing(path));
    if (const TextView fault = fileNameFault(place); !fault.empty()) {
        fail(path, std::string(fault));
        return false;
    }
    const std::uint64_t room =
        HelpSource::largestFile - std::min(collected(parts), HelpSource::largestFile);
    auto bytes = source_.sizeOf(path) > room ? std::nullopt : source_.read(path);
    if (!bytes) {
        fail(path, "it is too large or damaged");
        return false;
    }
    const bool isSheet = lowerEnding(path) == ".css";
    const Text css = isSheet ? text::decodedForeignPage(*bytes, source_.codePage) : Text();
    parts.push_back({path, place, std::move(*bytes)});
    if (isSheet) {
        for (const workshop::PageText& address : workshop::readStyleSheet(css)) {
            if (const auto named = source_.target(path, address.text)) {
                collect(*named, parts);
            }
        }
    }
    return true;
}

} // namespace importer
