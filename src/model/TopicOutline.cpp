#include "model/TopicOutline.h"

namespace model {

void TopicOutline::insert(int position, Topic topic) {
    assert(!full());
    topics_.insert(topics_.begin() + (position - 1), std::move(topic));
}

Topic TopicOutline::remove(int position) {
    Topic topic = std::move(at(position));
    topics_.erase(topics_.begin() + (position - 1));
    return topic;
}

text::Message topicLimitMessage(text::TextView consequence) {
    text::Text words = "Maximum Number of Help Topics Reached (";
    text::append(words, std::to_string(TopicOutline::maxTopics), "), ", consequence);
    return {std::move(words), "Topic Limit", text::MessageIcon::none};
}

} // namespace model
