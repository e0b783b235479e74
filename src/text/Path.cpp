#include "text/Path.h"

#include <algorithm>

#include "platform/Files.h"

namespace text {

std::filesystem::path nativePath(TextView text) {
    Text path(text);
    std::replace(path.begin(), path.end(), '\\', '/');
    return platform::pathFromUtf8(path);
}

Text displayText(const std::filesystem::path& path) {
    return platform::utf8FromPath(path);
}

bool hasEnding(TextView path, TextView lowerEnding) {
    return path.size() > lowerEnding.size()
           && startsWithIgnoringCase(path.substr(path.size() - lowerEnding.size()), lowerEnding);
}

bool isPageName(TextView path) {
    return hasEnding(path, ".htm") || hasEnding(path, ".html") || hasEnding(path, ".xhtml");
}

Text attributeText(const std::filesystem::path& folder) {
    const Text text = displayText(folder);
    Text attribute;
    for (const char character : TextView(text).substr(0, text.find_last_not_of("/\\") + 1)) {
        if (character == '\'') {
            attribute += "&#39;";
        } else if (character == '"') {
            attribute += "&quot;";
        } else {
            attribute += character;
        }
    }
    return attribute;
}

} // namespace text
