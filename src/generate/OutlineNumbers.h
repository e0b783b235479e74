#pragma once

#include <array>

#include "model/Topic.h"

namespace generate {

/// Numbers topics 1, 1.1, 1.2, 2 on a walk through the outline. A level that is jumped over keeps
/// the number that it had, 0 at first.
class OutlineNumbers {
public:
    /// The number of the next topic, which is at `depth`.
    text::Text next(int depth);

private:
    std::array<int, model::maxDepth + 1> counters_{};
    int depth_ = 0;
};

} // namespace generate
