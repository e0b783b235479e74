#include "model/ProtectedBlock.h"

#include <charconv>
#include <string>

#include "model/TextLines.h"

namespace model {

namespace {

std::int32_t leadingNumber(TextView text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Reads on behind the start marker; false when the end marker is missing.
bool readContent(LineReader& lines, ProtectedBlock& block) {
    bool first = true;
    for (TextView line; lines.next(line); first = false) {
        if (line.starts_with(blockEnd)) {
            return true;
        }
        if (first) {
            block.content = line;
            block.asIs = line;
        } else {
            append(block.content, lineBreak, line);
            const char* end = line.data() + line.size();
            block.asIs = {block.asIs.data(), static_cast<std::size_t>(end - block.asIs.data())};
        }
    }
    return false;
}

} // namespace

void appendProtectedBlock(Text& page, TextView body) {
    const TextView content = body.empty() ? placeholderBody : body;
    appendLine(page, blockStart, std::to_string(content.size()), blockStartEnd);
    appendLine(page, content);
    appendLine(page, blockEnd);
}

std::optional<ProtectedBlock> findProtectedBlock(TextView page) {
    LineReader lines(page);
    for (TextView line; lines.next(line);) {
        if (line.starts_with(blockStart)) {
            ProtectedBlock block;
            block.generatedLength = leadingNumber(line.substr(blockStart.size()));
            return readContent(lines, block) ? std::optional(std::move(block)) : std::nullopt;
        }
    }
    return {};
}

} // namespace model
