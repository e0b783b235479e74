#pragma once

#include <cassert>
#include <utility>
#include <vector>

#include "model/Topic.h"
#include "text/Message.h"

namespace model {

/// The ordered topics of a project. Positions run from 1 to count().
class TopicOutline {
public:
    static constexpr int maxTopics = 500;

    int count() const { return static_cast<int>(topics_.size()); }
    bool empty() const { return topics_.empty(); }
    bool full() const { return count() >= maxTopics; }

    Topic& at(int position) { return topics_[index(position)]; }
    const Topic& at(int position) const { return topics_[index(position)]; }

    int depth(int position) const { return levelDepth(at(position).level); }

    /// The topic gets this position and those from there on move down by one; count() + 1 appends.
    /// Not to be called on a full outline.
    void insert(int position, Topic topic);
    void append(Topic topic) {
        assert(!full());
        if (count() == smallOutline) {
            topics_.reserve(maxTopics); // moved once instead of again and again
        }
        topics_.push_back(std::move(topic));
    }
    Topic remove(int position);
    void swap(int a, int b) { std::swap(at(a), at(b)); }

    auto begin() const { return topics_.begin(); }
    auto end() const { return topics_.end(); }

    bool operator==(const TopicOutline&) const = default;

private:
    std::size_t index(int position) const {
        assert(position >= 1 && position <= count());
        return static_cast<std::size_t>(position - 1);
    }

    static constexpr int smallOutline = 16;

    std::vector<Topic> topics_;
};

/// What the author is told where there is no room for more; `consequence` says what becomes of the
/// rest.
text::Message topicLimitMessage(text::TextView consequence);

} // namespace model
