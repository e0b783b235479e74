#include "model/ProtectedBlock.h"

#include <charconv>
#include <string>

#include "text/TextLines.h"

namespace model {

using text::append;
using text::appendLine;
using text::lineBreak;
using text::LineReader;
using text::Text;
using text::TextView;

namespace {

std::int32_t leadingNumber(TextView text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

void appendContentLine(ProtectedBlock& block, TextView line, bool isFirst) {
    if (isFirst) {
        block.content = line;
        block.asIs = line;
    } else {
        append(block.content, lineBreak, line);
        const char* end = line.data() + line.size();
        block.asIs = {block.asIs.data(), static_cast<std::size_t>(end - block.asIs.data())};
    }
}

/// Reads on behind the start marker.
std::optional<ProtectedBlock> readContent(LineReader& lines, ProtectedBlock block,
                                          const text::CodePage& codePage) {
    std::optional<ProtectedBlock> first;
    bool isFirstLine = true;
    for (TextView line; lines.next(line); isFirstLine = false) {
        if (line.starts_with(blockEnd)) {
            if (block.hasGeneratedLength(codePage)) {
                return block;
            }
            if (first) {
                first->endUnknown = true;
            } else {
                first = block;
            }
        }
        appendContentLine(block, line, isFirstLine);
    }
    return first;
}

} // namespace

bool ProtectedBlock::hasGeneratedLength(const text::CodePage& codePage) const {
    const auto isGenerated = [&](TextView text) {
        return generatedLength >= 0
               && codePage.encodedSize(text) == static_cast<std::size_t>(generatedLength);
    };
    return isGenerated(content) || isGenerated(asIs);
}

void appendProtectedBlock(Text& page, TextView body, const text::CodePage& codePage) {
    const TextView content = body.empty() ? placeholderBody : body;
    appendLine(page, blockStart, std::to_string(codePage.encodedSize(content)), blockStartEnd);
    appendLine(page, content);
    appendLine(page, blockEnd);
}

std::optional<ProtectedBlock> findProtectedBlock(TextView page, const text::CodePage& codePage) {
    LineReader lines(page);
    for (TextView line; lines.next(line);) {
        if (line.starts_with(blockStart)) {
            ProtectedBlock block;
            block.generatedLength = leadingNumber(line.substr(blockStart.size()));
            return readContent(lines, std::move(block), codePage);
        }
    }
    return {};
}

} // namespace model
