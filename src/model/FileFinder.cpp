#include "model/FileFinder.h"

#include "model/CodePage.h"
#include "platform/Files.h"

namespace model {

namespace fs = std::filesystem;

namespace {

/// Of names that differ in letter case alone, the first by the alphabet counts.
template <typename Names>
void addName(Names& names, TextView shown, const fs::path& name) {
    const auto [place, isNew] = names.emplace(lowerCase(shown), name);
    if (!isNew && name < place->second) {
        place->second = name;
    }
}

} // namespace

fs::path FileFinder::find(TextView path) {
    fs::path native = nativePath(path);
    constexpr std::size_t longestPath = 4096;
    if (path.size() > longestPath) {
        return native; // no file has it
    }
    fs::path found = native.has_root_path() ? (folder_ / native).root_path() : folder_;
    int missing = 0; // parts at the end that nothing matches: below the first there is nothing
    for (const fs::path& part : native.relative_path()) {
        if (part == "..") {
            found = found.parent_path();
            missing -= missing > 0 ? 1 : 0;
        } else if (!part.empty() && part != ".") {
            const auto entry = missing > 0 ? std::nullopt : entryOf(found, part);
            found /= entry.value_or(part);
            missing += entry ? 0 : 1;
        }
    }
    return found;
}

std::optional<fs::path> FileFinder::entryOf(const fs::path& folder, const fs::path& name) {
    std::error_code ignored;
    if (fs::exists(folder / name, ignored)) {
        return name;
    }
    const Names& entries = names(folder);
    const auto match = entries.find(lowerCase(displayText(name)));
    return match == entries.end() ? std::nullopt : std::optional(match->second);
}

const FileFinder::Names& FileFinder::names(const fs::path& folder) {
    const auto [place, isNew] = listed_.try_emplace(folder);
    if (isNew) {
        std::error_code ignored; // a folder that cannot be listed has nothing to offer
        for (fs::directory_iterator i(folder, ignored), end; i != end; i.increment(ignored)) {
            const fs::path name = i->path().filename();
            addName(place->second, displayText(name), name);
            // A name whose letters were never converted, as some archives leave it behind.
            addName(place->second, platform::utf8FromPath(name), name);
        }
    }
    return place->second;
}

} // namespace model
