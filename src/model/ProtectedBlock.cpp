#include "generate/ProtectedBlock.h"

#include <string>

namespace generate {

void appendProtectedBlock(model::Text& page, model::TextView body) {
    const model::TextView content = body.empty() ? placeholderBody : body;
    model::appendLine(page, blockStart, std::to_string(content.size()), blockStartEnd);
    model::appendLine(page, content);
    model::appendLine(page, blockEnd);
}

} // namespace generate
