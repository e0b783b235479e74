#include "tools/SpellingScan.h"

namespace tools {

bool SpellingScan::goOn(int words) {
    constexpr std::size_t most = 1000;
    for (; words > 0; --words) {
        auto word = words_.next();
        if (!word || unknown_.size() == most) {
            return false;
        }
        if (!personal_.knows(word->letters) && !dictionary_.knows(word->letters)) {
            unknown_.push_back(std::move(*word));
        }
    }
    return true;
}

} // namespace tools
