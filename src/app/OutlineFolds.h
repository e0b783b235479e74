#pragma once

#include <vector>

#include "model/TopicOutline.h"

namespace app {

/// Which topics of the outline are folded, so that what lies below them is not shown, and which are
/// left out because the author looks for others. It has to be told when topics come, go or change
/// places.
class OutlineFolds {
public:
    /// The outline is not owned.
    explicit OutlineFolds(const model::TopicOutline& outline) : outline_(outline) {}

    void reset() { folded_.assign(static_cast<std::size_t>(outline_.count()), false); }
    void inserted(int position);
    void removed(int position);
    void swapped(int a, int b);

    /// Whether anything lies below a topic.
    bool hasBelow(int position) const;

    bool isFolded(int position) const;
    bool isAnyFolded() const;
    void setFolded(int position, bool folded);
    void setAllFolded(bool folded);

    /// Unfolds what a topic lies in; true when anything was folded there.
    bool reveal(int position);

    /// What is looked for in titles, file names, keywords, contexts and status letters; empty for
    /// nothing. While there is something, folding does not count.
    void setFilter(const text::Text& filter) { filter_ = text::lowerCase(filter); }
    bool isFiltered() const { return !filter_.empty(); }

    /// For each topic whether it is hidden, in their order.
    std::vector<bool> hidden() const;

private:
    bool matches(const model::Topic& topic) const;

    const model::TopicOutline& outline_;
    std::vector<bool> folded_; ///< by position, from 0
    text::Text filter_;        ///< in small letters
};

} // namespace app
