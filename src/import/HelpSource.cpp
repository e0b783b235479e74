#include "import/HelpSource.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/Address.h"
#include "text/ForeignText.h"

namespace importer {

using text::Text;
using text::TextView;

TextView folderOf(TextView path) {
    const std::size_t slash = path.find_last_of("/\\");
    return path.substr(0, slash == TextView::npos ? 0 : slash + 1);
}

std::unique_ptr<HelpSource> HelpSource::open(const std::filesystem::path& file, Text& problem) {
    std::string head;
    if (const std::error_code error = platform::readPart(file, head, 0, 4)) {
        problem = error.message();
        return nullptr;
    }
    return head == "ITSF" ? openCompiledHelp(file, problem) : openWorkshopProject(file, problem);
}

std::optional<Text> HelpSource::readText(const Text& path) const {
    if (sizeOf(path) > largestFile) {
        return {};
    }
    const auto bytes = read(path);
    return bytes ? std::optional(text::decodedForeignPage(*bytes, codePage)) : std::nullopt;
}

bool HelpSource::addContents(SourceEntry entry) {
    if (contents.size() == mostEntries) {
        notes.push_back("The contents have more than " + std::to_string(mostEntries)
                        + " entries; the rest was not read");
        return false;
    }
    contents.push_back(std::move(entry));
    return true;
}

std::optional<Text> HelpSource::target(TextView page, TextView address) const {
    const TextView path = withoutAnchor(address);
    if (path.empty() || leadsElsewhere(address)) {
        return {};
    }
    const bool fromRoot = path.starts_with('/') || path.starts_with('\\');
    const Text folder(fromRoot ? TextView() : folderOf(page));
    for (const Text& each : {Text(path), text::unescaped(path)}) {
        const Text relative = text::plainPath(folder + text::decodedSource(each, codePage).utf8);
        if (auto found = relative.empty() ? std::nullopt : find(relative)) {
            return found;
        }
    }
    return {};
}

Text imageOf(int picture, bool isNew) {
    constexpr int leaf = 11;
    constexpr int newLeaf = 12;
    return picture == leaf ? "Leaf" : picture == newLeaf ? "New Leaf" : isNew ? "New" : "Auto";
}

TextView withoutAnchor(TextView page) {
    return page.substr(0, page.find_first_of("#?"));
}

TextView anchorOf(TextView page) {
    const std::size_t sharp = page.find('#');
    return sharp == TextView::npos ? TextView() : page.substr(sharp + 1);
}

bool leadsElsewhere(TextView address) {
    const std::size_t colon = address.find(':');
    return address.starts_with("//") || address.starts_with("\\\\")
           || (colon != TextView::npos && address.find_first_of("/\\#?") > colon)
           || address.find("::") != TextView::npos;
}

Text pathKey(TextView path) {
    return text::lowerCase(path);
}

} // namespace importer
