#include <algorithm>
#include <cstdint>

#include "Require.h"
#include "import/TextImport.h"
#include "text/TextLines.h"

/// Any text gives topics that a project can hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const text::Text text = text::decodedText(
        std::string(reinterpret_cast<const char*>(data), size), text::Foreign::references);
    constexpr int room = 50;
    const importer::TextOutline outline = importer::readTextOutline(text, room);
    require(outline.topics.size() <= room, "too many topics");
    for (const model::Topic& topic : outline.topics) {
        const int depth = model::levelDepth(topic.level);
        require(depth >= 1 && depth <= model::maxDepth && topic.level == model::levelText(depth),
                "a wrong level");
        require(topic.fileName.size() > 4 && topic.fileName.ends_with(".htm"), "no file name");
        require(std::all_of(topic.title.begin(), topic.title.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 0x80; }),
                "a character that the title cannot have");
    }
    return 0;
}
