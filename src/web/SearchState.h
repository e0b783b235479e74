#pragma once

#include <optional>
#include <vector>

#include "model/TopicOutline.h"
#include "web/SiteMap.h"

namespace web {

inline constexpr text::TextView statePlace = "site/state.txt";

/// What the search of a site was made of, so that the next run can change the parts of it that are
/// no longer right.
struct SearchState {
    std::uint64_t maker = 0;             ///< another one when the program makes other searches
    std::size_t changes = 0;             ///< pages packed anew since all were packed together
    std::size_t wordFiles = 0;           ///< how many files have words
    std::vector<std::size_t> firstPages; ///< of each file of texts
    std::vector<std::uint64_t> pages;    ///< by position: a hash of what is searched

    /// Of an outline whose search is to be made.
    static SearchState of(const model::TopicOutline& outline, const SiteMap& map);

    text::Text format() const;
    static std::optional<SearchState> parse(text::TextView text); ///< nothing for other texts
};

} // namespace web
