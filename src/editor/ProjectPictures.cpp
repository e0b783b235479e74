#include "editor/ProjectPictures.h"

#include <algorithm>

#include "editor/PictureFile.h"
#include "model/ProjectFolders.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/Path.h"

namespace editor {

namespace fs = std::filesystem;

namespace {

/// The file of this machine that an address names; empty for none.
fs::path fileOf(TextView address) {
    constexpr TextView scheme = "file://";
    if (!text::startsWithIgnoringCase(address, scheme)) {
        return {};
    }
    address.remove_prefix(scheme.size());
    if (text::startsWithIgnoringCase(address, "localhost/")) {
        address.remove_prefix(TextView("localhost").size());
    }
    if (!address.starts_with('/')) {
        return {}; // another machine's
    }
    Text path = text::unescaped(address.substr(0, address.find_first_of("?#")));
    if (path.size() > 2 && path[2] == ':') {
        path.erase(0, 1); // "/C:/..."
    }
    return platform::pathFromUtf8(path);
}

} // namespace

ProjectPictures::ProjectPictures(fs::path projectFolder, const text::CodePage& codePage)
    : projectFolder_(std::move(projectFolder)), codePage_(codePage) {}

fs::path ProjectPictures::pathOf(TextView name) const {
    return projectFolder_ / model::imageFolderName / platform::pathFromUtf8(name);
}

Text ProjectPictures::nameOf(TextView name) const {
    const Text good = goodPictureName(name);
    return codePage_.hasAll(good) ? good : "picture";
}

bool ProjectPictures::isTaken(TextView name, std::string_view bytes) const {
    const fs::path path = pathOf(name);
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(path, ignored))) {
        return false;
    }
    std::string there;
    return static_cast<bool>(platform::readFile(path, there, largestPicture)) || there != bytes;
}

Text ProjectPictures::freeName(TextView wanted, std::string_view bytes) const {
    constexpr int most = 10000;
    const Text stem = nameOf(wanted);
    const Text ending = "." + pictureEnding(bytes);
    Text name = stem + ending;
    for (int number = 2; number < most && isTaken(name, bytes); ++number) {
        name = stem;
        text::append(name, "-", std::to_string(number), ending);
    }
    return name;
}

std::error_code ProjectPictures::store(TextView name, std::string_view bytes) {
    const fs::path path = pathOf(name);
    if (isTaken(name, bytes)) {
        return std::make_error_code(std::errc::file_exists);
    }
    if (const std::error_code error = platform::createFolders(path.parent_path())) {
        return error;
    }
    return platform::isFile(path) ? std::error_code() : platform::replaceFile(path, bytes);
}

Text ProjectPictures::nameInFolder(const fs::path& file) const {
    const fs::path folder = platform::realPath(projectFolder_ / model::imageFolderName);
    const Text name = text::displayText(file.filename());
    const bool inside = platform::realPath(file.parent_path()) == folder;
    return inside && codePage_.hasAll(name) ? name : Text();
}

Text ProjectPictures::picture(TextView address) {
    if (projectFolder_.empty()) {
        return {};
    }
    const fs::path file = fileOf(address);
    std::string bytes =
        text::startsWithIgnoringCase(address, "data:image/") ? bytesOfDataAddress(address) : "";
    if (!file.empty() && platform::readFile(file, bytes, std::min(left_, largestPicture))) {
        return {};
    }
    if (pictureEnding(bytes).empty() || bytes.size() > left_) {
        return {};
    }
    left_ -= bytes.size();
    Text name = file.empty() ? Text() : nameInFolder(file);
    if (name.empty()) {
        name = freeName(text::displayText(file.stem()), bytes);
        if (store(name, bytes)) {
            return {};
        }
    }
    return R"(..\)" + Text(model::imageFolderName) + "\\" + name;
}

Text ProjectPictures::page(TextView address) {
    const fs::path file = fileOf(address);
    const fs::path folder = platform::realPath(projectFolder_ / model::pageFolderName);
    if (file.empty() || projectFolder_.empty() || !platform::isFile(file)
        || platform::realPath(file.parent_path()) != folder) {
        return {};
    }
    const std::size_t anchor = address.find('#');
    return R"(..\)" + Text(model::pageFolderName) + "\\" + text::displayText(file.filename())
           + Text(anchor == TextView::npos ? TextView() : address.substr(anchor));
}

} // namespace editor
