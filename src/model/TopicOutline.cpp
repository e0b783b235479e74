#include "model/TopicOutline.h"

#include <cassert>

namespace model {

void TopicOutline::insert(int position, Topic topic) {
    assert(!full());
    topics_.insert(topics_.begin() + (position - 1), std::move(topic));
}

void TopicOutline::remove(int position) {
    topics_.erase(topics_.begin() + (position - 1));
}

} // namespace model
