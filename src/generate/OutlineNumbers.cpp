#include "generate/OutlineNumbers.h"

#include <string>

namespace generate {

text::Text OutlineNumbers::next(int depth) {
    int& counter = counters_[static_cast<std::size_t>(depth)];
    counter = depth > depth_ ? 1 : counter + 1;
    depth_ = depth;
    text::Text number;
    for (int level = 1; level <= depth; ++level) {
        text::append(number, level > 1 ? "." : "",
                     std::to_string(counters_[static_cast<std::size_t>(level)]));
    }
    return number;
}

} // namespace generate
