#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"
#include "web/SiteSources.h"

namespace web {

inline constexpr text::TextView memoryPlace = "site/pages.txt";

/// What each page of a site was made of, so that the next run makes only those that would become
/// others. What may show on any page is one number, the frame: options, and all of the topics but
/// their texts. A page of the same frame depends on its own text, and on which of the files exist
/// that it names.
class PageMemory {
public:
    /// What stands around all texts.
    static std::uint64_t frameOf(const model::TopicOutline& outline,
                                 const model::ProjectOptions& options, bool isOnlyForLight);

    /// Of pages with numbers up to `lastPage`. `before` is what format() gave in the last run;
    /// other texts, and other frames, know nothing.
    PageMemory(std::uint64_t frame, std::size_t lastPage, text::Text before);
    PageMemory(const PageMemory&) = delete;
    PageMemory& operator=(const PageMemory&) = delete;

    /// Whether a page would become what it was, with the hash of its text; it is remembered then.
    /// Wants the files that it names.
    bool isSame(std::size_t page, std::uint64_t hash, SiteSources& sources);

    /// A page that was made, and what it asked for.
    void remember(std::size_t page, std::uint64_t hash,
                  const std::vector<SiteSources::Asked>& asked);

    text::Text format() const;

    static constexpr std::uint64_t neverSame = 0; ///< as a hash

private:
    /// By page, empty for one of which nothing is known: its number, its hash, and for each file
    /// the place and what was found, with a tab behind each.
    using Lines = std::vector<text::TextView>;

    std::uint64_t frame_;
    text::Text before_; ///< has lines of both
    Lines linesBefore_;
    std::deque<text::Text> made_; ///< has the others
    Lines lines_;
};

} // namespace web
