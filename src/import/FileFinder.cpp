#include "import/FileFinder.h"

#include "model/CodePage.h"

namespace importer {

namespace fs = std::filesystem;
using model::Text;
using model::TextView;

fs::path FileFinder::find(TextView path) {
    const fs::path native = model::nativePath(path);
    fs::path found = native.has_root_path() ? (folder_ / native).root_path() : folder_;
    for (const fs::path& part : native.relative_path()) {
        const Text name = model::displayText(part);
        if (name == "..") {
            found = found.parent_path();
        } else if (!name.empty() && name != ".") {
            found = entry(found, name);
        }
    }
    return found;
}

fs::path FileFinder::entry(const fs::path& folder, TextView name) {
    const fs::path exact = folder / model::nativePath(name);
    std::error_code ignored;
    if (fs::exists(exact, ignored)) {
        return exact;
    }
    const Names& entries = names(folder);
    const auto match = entries.find(model::lowerCase(name));
    return match == entries.end() ? exact : folder / match->second;
}

const FileFinder::Names& FileFinder::names(const fs::path& folder) {
    const auto [place, isNew] = listed_.try_emplace(folder);
    if (isNew) {
        std::error_code ignored; // a folder that cannot be listed has nothing to offer
        for (fs::directory_iterator i(folder, ignored), end; i != end; i.increment(ignored)) {
            const fs::path name = i->path().filename();
            place->second.emplace(model::lowerCase(model::displayText(name)), name);
            // A name whose letters were never converted, as some archives leave it behind.
            place->second.emplace(model::lowerCase(name.string()), name);
        }
    }
    return place->second;
}

} // namespace importer
