#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace compile {

/// An entry of the contents.
struct ContentsNode {
    int depth = 1; ///< from 1
    std::optional<std::uint32_t> topic;
    std::uint32_t name = 0; ///< among the strings; for one without a topic
    bool isNew = false;
};

/// "#TOCIDX", the contents in the form that readers walk through.
struct ContentsTree {
    std::string bytes;
    std::vector<std::uint32_t> offsets; ///< of the nodes
};
ContentsTree contentsTree(const std::vector<ContentsNode>& nodes);

} // namespace compile
