#include "model/Topic.h"

#include <tuple>

namespace model {

using text::Text;
using text::TextView;
namespace {

auto fields(const Topic& t) {
    return std::tie(t.level, t.status, t.title, t.fileName, t.contextId, t.contextNumber,
                    t.shortDescription, t.image, t.keywords, t.body);
}

} // namespace

bool operator==(const Topic& a, const Topic& b) {
    return fields(a) == fields(b);
}

Text levelText(int depth) {
    return Text(static_cast<std::size_t>(depth - 1) * 2, '.') + static_cast<char>('0' + depth);
}

int levelDepth(TextView levelText) {
    if (levelText.empty() || levelText.back() < '0' || levelText.back() > '9') {
        return 0;
    }
    return levelText.back() - '0';
}

} // namespace model
