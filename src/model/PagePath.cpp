#include "model/PagePath.h"

#include <algorithm>

#include "model/Helper.h"
#include "text/Path.h"

namespace model {

using text::lowerCase;
using text::nativePath;
using text::Text;
using text::TextView;
using text::trim;
namespace {

constexpr TextView slashes = "/\\";

constexpr TextView blanksAndPoints = ". ";

/// Windows takes these names for devices in every folder, whatever their ending.
bool isDevice(TextView part) {
    constexpr TextView names[] = {"con", "prn", "aux", "nul", "conin$", "conout$"};
    constexpr TextView numbers[] = {"0", "1", "2", "3",      "4",      "5",     "6",
                                    "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"}; // raised, too
    const Text stem = lowerCase(trim(part.substr(0, part.find('.'))));
    const TextView port = TextView(stem).substr(0, 3);
    const bool hasNumber =
        std::find(std::begin(numbers), std::end(numbers), TextView(stem).substr(port.size()))
        != std::end(numbers);
    return std::find(std::begin(names), std::end(names), stem) != std::end(names)
           || (hasNumber && (port == "com" || port == "lpt"));
}

bool isControlCharacter(char character) {
    return static_cast<unsigned char>(character) < ' ';
}

/// A part that names something in its folder, rather than the folder itself or the one above. What
/// Windows cuts off at the end, and a second stream of a file, could hide such names.
bool isPlainPart(TextView part) {
    return !part.empty() && blanksAndPoints.find(part.back()) == TextView::npos
           && part.find(':') == TextView::npos && !isDevice(part);
}

} // namespace

Text pageNameFor(TextView title, const text::CodePage& codePage) {
    return makeFileName(withoutForeignReferences(withoutForeignLetters(title, codePage), codePage))
           + ".htm";
}

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
    for (TextView rest = fileName;;) {
        const std::size_t slash = rest.find_first_of(slashes);
        if (!isPlainPart(rest.substr(0, slash))) {
            return "the file name does not stay inside the page folder";
        }
        if (slash == TextView::npos) {
            return {};
        }
        rest.remove_prefix(slash + 1);
    }
}

bool staysInPageFolder(TextView fileName) {
    return fileName.empty() || pageNameFault(fileName).empty();
}

Text pageKey(TextView fileName) {
    Text key = lowerCase(fileName);
    std::replace(key.begin(), key.end(), '/', '\\');
    return key;
}

} // namespace model
