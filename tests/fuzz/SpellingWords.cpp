#include "tools/SpellingWords.h"

#include <cstdint>

#include "Require.h"

/// The words of any text lie in it one behind the other, and hold no mark-up.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const tools::Text text(reinterpret_cast<const char*>(data), size);
    tools::WordReader words(text);
    std::size_t end = 0;
    while (const auto word = words.next()) {
        require(word->start >= end && word->length > 0, "words overlap");
        end = word->start + word->length;
        require(end <= text.size(), "a word goes beyond the text");
        require(!word->letters.empty(), "a word without letters");
        require(text.find_first_of("<> \r\n", word->start) >= end, "mark-up in a word");
        tools::WordReader again(text, end);
        if (const auto next = again.next()) {
            require(next->start >= end, "a word is read twice");
        }
        if (end > 2000) { // reading on from every word is quadratic
            break;
        }
    }
    return 0;
}
