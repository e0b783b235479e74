#include "text/FileFinder.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/Path.h"

namespace text {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestPath = 4096;

/// Names with the same key are one. A name whose letters were never converted, as some archives
/// leave it behind, counts as one of the code page.
std::string keyOf(const fs::path& name) {
    const std::string utf8 = platform::utf8FromPath(name);
    std::string key;
    for (std::string_view rest = utf8; !rest.empty();) {
        const char32_t character = takeUtf8(rest);
        if (character == replacementCharacter) {
            return lowerCase(CodePage().decoded(utf8));
        }
        appendUtf8(key, lowerCase(character));
    }
    return key;
}

} // namespace

fs::path FileFinder::find(TextView path) {
    return findNative(nativePath(path));
}

fs::path FileFinder::findNative(const fs::path& native) {
    if (native.native().size() > longestPath) {
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
    const Names& entries = names(folder);
    const auto match = entries.find(keyOf(name));
    if (match == entries.end()) { // a folder that cannot be listed may hold it all the same
        std::error_code ignored;
        return fs::exists(folder / name, ignored) ? std::optional(name) : std::nullopt;
    }
    const auto& same = match->second;
    const bool isThere = std::find(same.begin(), same.end(), name) != same.end();
    return isThere ? name : same.front();
}

const FileFinder::Names& FileFinder::names(const fs::path& folder) {
    const auto [place, isNew] = listed_.try_emplace(folder.native());
    if (isNew) {
        std::error_code ignored; // a folder that cannot be listed has nothing to offer
        for (fs::directory_iterator i(folder, ignored), end; i != end; i.increment(ignored)) {
            const fs::path name = i->path().filename();
            place->second[keyOf(name)].push_back(name);
        }
        for (auto& [key, same] : place->second) {
            std::sort(same.begin(), same.end());
        }
    }
    return place->second;
}

} // namespace text
