#pragma once

#include <span>
#include <vector>

#include "tools/PlaceSearch.h"
#include "ui/ListView.h"

namespace tools {

/// Places as rows to be ticked, below a row for each topic.
class PlaceRows : public ui::ListSource {
public:
    /// Adds a topic's places, all ticked, which must be behind those that are there. `insert` is
    /// called for each row, and adds it by calling its argument.
    void add(const model::Topic& topic, std::span<const Place> places,
             const std::function<void(int row, const std::function<void()>& add)>& insert);
    void clear();

    /// Ticks a place, or all of a topic's; gives the first and the last row that changed.
    std::pair<int, int> setTicked(int row, bool ticked);

    bool isTicked(int row) const;
    const std::vector<Place>& places() const { return places_; }
    std::size_t topicCount() const { return topics_.size(); }
    std::size_t tickedCount() const;
    std::vector<Place> tickedPlaces() const;

    /// The place of a row; for a topic's row, its first.
    const Place& placeOf(int row) const;

    int rowCount() const override { return static_cast<int>(rows_.size()); }
    Text cell(int row, int column) const override;
    Text toolTip(int row, int column) const override { return cell(row, column); }
    int indent(int row, int column) const override;
    std::optional<bool> checked(int row) const override { return isTicked(row); }

private:
    struct Row {
        std::size_t topic; ///< in topics_
        std::size_t place; ///< in places_
        bool isTopic;
    };
    struct TopicRow {
        Text title;
        int row; ///< its own
        std::size_t count;
    };

    const Row& at(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }

    std::vector<Row> rows_;
    std::vector<TopicRow> topics_;
    std::vector<Place> places_;
    std::vector<bool> ticked_; ///< by place
};

} // namespace tools
