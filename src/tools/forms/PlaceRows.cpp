#include "tools/forms/PlaceRows.h"

#include <algorithm>

namespace tools {

void PlaceRows::add(const model::Topic& topic, std::span<const Place> places,
                    const std::function<void(int row, const std::function<void()>& add)>& insert) {
    if (places.empty()) {
        return;
    }
    const std::size_t first = places_.size();
    places_.insert(places_.end(), places.begin(), places.end());
    ticked_.resize(places_.size(), true);
    topics_.push_back({text::oneLine(topic.title), rowCount() + 1, places.size()});
    insert(rowCount() + 1, [&] { rows_.push_back({topics_.size() - 1, first, true}); });
    for (std::size_t place = first; place < places_.size(); ++place) {
        insert(rowCount() + 1, [&] { rows_.push_back({topics_.size() - 1, place, false}); });
    }
}

void PlaceRows::clear() {
    rows_.clear();
    topics_.clear();
    places_.clear();
    ticked_.clear();
}

std::pair<int, int> PlaceRows::setTicked(int row, bool ticked) {
    const Row& changed = at(row);
    const TopicRow& topic = topics_[changed.topic];
    const auto first = ticked_.begin() + static_cast<std::ptrdiff_t>(changed.place);
    const std::size_t count = changed.isTopic ? topic.count : 1;
    std::fill_n(first, count, ticked);
    const int last = changed.isTopic ? topic.row + static_cast<int>(topic.count) : row;
    return {topic.row, last}; // whether the topic is ticked may change, too
}

/// A topic is while all of its places are.
bool PlaceRows::isTicked(int row) const {
    const Row& asked = at(row);
    const auto first = ticked_.begin() + static_cast<std::ptrdiff_t>(asked.place);
    const std::size_t count = asked.isTopic ? topics_[asked.topic].count : 1;
    return std::all_of(first, first + static_cast<std::ptrdiff_t>(count),
                       [](bool ticked) { return ticked; });
}

std::size_t PlaceRows::tickedCount() const {
    return static_cast<std::size_t>(std::count(ticked_.begin(), ticked_.end(), true));
}

std::vector<Place> PlaceRows::tickedPlaces() const {
    std::vector<Place> places;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (ticked_[i]) {
            places.push_back(places_[i]);
        }
    }
    return places;
}

const Place& PlaceRows::placeOf(int row) const {
    return places_[at(row).place];
}

Text PlaceRows::cell(int row, int column) const {
    const Row& shown = at(row);
    const TopicRow& topic = topics_[shown.topic];
    const Place& place = places_[shown.place];
    if (shown.isTopic) {
        return column == 0 ? topic.title : std::to_string(topic.count);
    }
    if (column == 1) {
        return place.excerpt;
    }
    return place.part == TopicPart::body ? "line " + std::to_string(place.line)
                                         : nameOf(place.part);
}

int PlaceRows::indent(int row, int column) const {
    constexpr int placeLevel = 3;
    return column == 0 ? ui::indentOfLevel(at(row).isTopic ? 1 : placeLevel) : -1;
}

} // namespace tools
