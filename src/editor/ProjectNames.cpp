#include "editor/ProjectNames.h"

#include <algorithm>

#include "editor/PictureFile.h"
#include "model/ProjectFolders.h"
#include "text/Path.h"

namespace editor {

namespace {

constexpr TextView upwards = R"(..\)";

Text addressIn(const char* folder, TextView name) {
    return Text(upwards) + folder + "\\" + Text(name);
}

/// The file that a link names, in small letters.
Text fileOf(TextView link) {
    return text::lowerCase(link.substr(link.find_last_of("\\/") + 1));
}

} // namespace

std::vector<Text> ProjectNames::pages() {
    std::vector<Text> pages;
    for (const model::Topic& topic : project_.outline()) {
        if (!topic.fileName.empty()) {
            pages.push_back(addressIn(model::pageFolderName, topic.fileName));
        }
    }
    std::sort(pages.begin(), pages.end());
    return pages;
}

std::vector<Text> ProjectNames::pictures() {
    namespace fs = std::filesystem;
    constexpr std::size_t most = 2000;
    std::vector<Text> pictures;
    if (!project_.hasFile()) {
        return pictures;
    }
    std::error_code error;
    fs::directory_iterator files(project_.projectPath().parent_path() / model::imageFolderName,
                                 error);
    for (; !error && files != fs::directory_iterator() && pictures.size() < most;
         files.increment(error)) {
        if (hasPictureName(files->path())) {
            pictures.push_back(
                addressIn(model::imageFolderName, text::displayText(files->path().filename())));
        }
    }
    std::sort(pictures.begin(), pictures.end());
    return pictures;
}

std::vector<Text> ProjectNames::anchors(TextView page) {
    if (page.empty()) {
        return anchorsIn(body_());
    }
    const Text wanted = fileOf(page);
    for (const model::Topic& topic : project_.outline()) {
        if (fileOf(topic.fileName) == wanted) {
            return anchorsIn(topic.body);
        }
    }
    return {};
}

} // namespace editor
