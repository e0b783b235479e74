#include <cstdint>

#include "Require.h"
#include "import/TextImport.h"
#include "model/Helper.h"
#include "text/ForeignText.h"

/// Any text gives topics that a project can hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const text::CodePage codePage;
    const text::Text text =
        text::decodedSource({reinterpret_cast<const char*>(data), size}, codePage.number()).utf8;
    constexpr int room = 50;
    const importer::TextOutline outline = importer::readTextOutline(text, room, codePage);
    require(outline.topics.size() <= room, "too many topics");
    for (const model::Topic& topic : outline.topics) {
        const int depth = model::levelDepth(topic.level);
        require(depth >= 1 && depth <= model::maxDepth && topic.level == model::levelText(depth),
                "a wrong level");
        require(topic.fileName.size() > 4 && topic.fileName.ends_with(".htm"), "no file name");
        require(topic.title == model::stripHighChars(topic.title),
                "a character that the title cannot have");
        require(codePage.hasAll(topic.fileName), "a name that the workshop cannot read");
    }
    return 0;
}
