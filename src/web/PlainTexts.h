#pragma once

#include <atomic>
#include <vector>

#include "model/TopicOutline.h"

namespace web {

/// The plain texts of topics, made by two threads: one needs them from the first to the last, the
/// other makes them from the last one on, until they meet.
class PlainTexts {
public:
    /// Nothing is owned.
    explicit PlainTexts(const model::TopicOutline& outline)
        : outline_(outline), texts_(static_cast<std::size_t>(outline.count()) + 1),
          states_(texts_.size()) {}

    /// By position; empty where none was made.
    const std::vector<text::Text>& all() const { return texts_; }

    /// Makes a text, unless it is there.
    void make(std::size_t position);

    /// For the other thread, with the positions of all that are needed.
    void makeFromEnd(const std::vector<std::size_t>& positions);

private:
    enum class State : char { none, begun, made };

    bool begin(std::size_t position);

    const model::TopicOutline& outline_;
    std::vector<text::Text> texts_;
    std::vector<std::atomic<State>> states_;
};

} // namespace web
