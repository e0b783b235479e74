#include <cstdint>

#include "Require.h"
#include "model/ProtectedBlock.h"
#include "text/TextLines.h"

using namespace model;
using namespace text;

namespace {

bool holdsEndMarker(TextView body) {
    LineReader lines(body);
    for (TextView line; lines.next(line);) {
        if (line.starts_with(blockEnd)) {
            return true;
        }
    }
    return false;
}

} // namespace

/// Any page is read without a crash, and any body comes back from its page as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CodePage codePage;
    const Text input = codePage.decoded({reinterpret_cast<const char*>(data), size});
    if (const auto block = findProtectedBlock(input, codePage)) {
        require(block->asIs.empty() || input.find(block->asIs) != Text::npos, "not of the page");
        require(block->content.size() <= 2 * input.size(), "more than the page holds");
    }
    if (!holdsEndMarker(input)) {
        Text page;
        appendProtectedBlock(page, input, codePage);
        const auto block = findProtectedBlock(page, codePage);
        require(block.has_value(), "a written block is not found");
        const TextView expected = input.empty() ? placeholderBody : TextView(input);
        require(block->asIs == expected, "the body differs");
        require(static_cast<std::size_t>(block->generatedLength) == codePage.encodedSize(expected),
                "the length differs");
    }
    return 0;
}
