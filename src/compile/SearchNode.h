#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "compile/Bytes.h"

namespace compile {

/// Entries on their way into a node, in which each leaves out what it shares with the one before.
class SearchNode {
public:
    static constexpr std::size_t nodeSize = 4096;

    explicit SearchNode(std::size_t headSize) : headSize_(headSize) {}

    /// `bytes` become the entry's beginning; returns whether it has room with `rest` behind it.
    bool begins(std::string_view word, std::size_t rest, std::string& bytes) const {
        const auto [end, ignored] =
            std::mismatch(word.begin(), word.end(), last_.begin(), last_.end());
        const auto shared = static_cast<std::size_t>(end - word.begin());
        bytes.clear();
        bytes.push_back(static_cast<char>(word.size() - shared + 1));
        bytes.push_back(static_cast<char>(shared));
        bytes += word.substr(shared);
        return headSize_ + entries_.size() + bytes.size() + rest <= nodeSize;
    }

    void add(std::string_view word, std::string_view entry) {
        entries_ += entry;
        last_ = word;
    }

    const std::string& lastWord() const { return last_; }
    std::size_t unused() const { return nodeSize - headSize_ - entries_.size(); }

    /// Appends the node, of which all but the number of unused bytes is in front of the entries,
    /// and begins a new one.
    void moveTo(std::string& bytes) {
        bytes.append(headSize_ - 2, '\0');
        append16(bytes, unused());
        bytes += entries_;
        bytes.append(unused(), '\0');
        entries_.clear();
        last_.clear();
    }

private:
    std::size_t headSize_;
    std::string entries_;
    std::string last_;
};

} // namespace compile
