#include "help/ContentsPlace.h"

namespace help {

int entryOf(const std::vector<ContentsEntry>& contents, const std::string& place, int selected) {
    const int count = static_cast<int>(contents.size());
    for (const bool exactly : {true, false}) {
        const auto keyOf = [exactly](const std::string& page) {
            return packedKey(exactly ? page : withoutAnchor(page));
        };
        const std::string wanted = keyOf(place);
        const auto leadsThere = [&](int item) {
            return keyOf(contents[static_cast<std::size_t>(item) - 1].target.page) == wanted;
        };
        if (selected > 0 && leadsThere(selected)) {
            return selected;
        }
        for (int item = 1; item <= count; ++item) {
            if (leadsThere(item)) {
                return item;
            }
        }
    }
    return 0;
}

} // namespace help
