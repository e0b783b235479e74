#include "model/PagePath.h"

#include <algorithm>

#include "model/CodePage.h"
#include "model/Helper.h"

namespace model {
namespace {

constexpr TextView slashes = "/\\";

bool startsWithDrive(TextView fileName) {
    return fileName.size() >= 2 && fileName[1] == ':' && isAllLetters(fileName.substr(0, 1));
}

bool isControlCharacter(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

/// A part that names something in its folder, rather than the folder itself or the one above.
bool isPlainPart(TextView part) {
    return !part.empty() && part != "." && part != "..";
}

} // namespace

std::filesystem::path pagePath(const std::filesystem::path& pageFolder, TextView fileName) {
    return pageFolder / nativePath(fileName);
}

TextView pageNameFault(TextView fileName) {
    if (fileName.empty()) {
        return "the topic has no file name";
    }
    if (std::any_of(fileName.begin(), fileName.end(), isControlCharacter)) {
        return "the file name holds a control character";
    }
    constexpr TextView outside = "the file name does not stay inside the page folder";
    if (startsWithDrive(fileName)) {
        return outside;
    }
    for (TextView rest = fileName;;) {
        const std::size_t slash = rest.find_first_of(slashes);
        if (!isPlainPart(rest.substr(0, slash))) {
            return outside;
        }
        if (slash == TextView::npos) {
            return {};
        }
        rest.remove_prefix(slash + 1);
    }
}

Text pageKey(TextView fileName) {
    Text key = lowerCase(fileName);
    std::replace(key.begin(), key.end(), '/', '\\');
    return key;
}

} // namespace model
