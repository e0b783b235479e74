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

/// Collects the lines of a block and how many bytes they take in the page: a text can hold many end
/// markers, and must not be measured from its beginning for each.
class BlockReader {
public:
    BlockReader(ProtectedBlock& block, const text::CodePage& codePage)
        : block_(block), codePage_(codePage) {}

    void add(TextView line) {
        const std::size_t size = codePage_.encodedSize(line);
        if (block_.asIs.data() == nullptr) {
            block_.content = line;
            block_.asIs = line;
        } else {
            append(block_.content, lineBreak, line);
            const auto length = static_cast<std::size_t>(line.data() - block_.asIs.data());
            asIsSize_ += length - block_.asIs.size(); // the line end before it
            contentSize_ += lineBreak.size();
            block_.asIs = {block_.asIs.data(), length + line.size()};
        }
        contentSize_ += size;
        asIsSize_ += size;
    }

    bool isComplete() const {
        const auto length = static_cast<std::size_t>(block_.generatedLength);
        return block_.generatedLength >= 0 && (contentSize_ == length || asIsSize_ == length);
    }

private:
    ProtectedBlock& block_;
    const text::CodePage& codePage_;
    std::size_t contentSize_ = 0;
    std::size_t asIsSize_ = 0;
};

/// Reads on behind the start marker.
std::optional<ProtectedBlock> readContent(LineReader& lines, ProtectedBlock block,
                                          const text::CodePage& codePage) {
    std::optional<ProtectedBlock> first;
    BlockReader reader(block, codePage);
    for (TextView line; lines.next(line);) {
        if (line.starts_with(blockEnd)) {
            if (reader.isComplete()) {
                return block;
            }
            if (first) {
                first->endUnknown = true;
            } else {
                first = block;
            }
        }
        reader.add(line);
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
