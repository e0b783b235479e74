#pragma once

#include <cstdint>
#include <map>
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

    /// `before` is what format() gave in the last run; other texts, and other frames, know nothing.
    PageMemory(std::uint64_t frame, text::TextView before);

    /// Whether a page would become what it was, with the hash of its text; it is remembered then.
    /// Wants the files that it names.
    bool isSame(std::size_t page, std::uint64_t hash, SiteSources& sources);

    /// A page that was made, and what it asked for.
    void remember(std::size_t page, std::uint64_t hash,
                  const std::vector<SiteSources::Asked>& asked);

    text::Text format() const;

    static constexpr std::uint64_t neverSame = 0; ///< as a hash

private:
    struct File {
        text::Text place;
        text::Text found; ///< empty for one that is not there
    };
    struct Page {
        std::uint64_t hash = neverSame;
        std::vector<File> files;
    };
    using Pages = std::map<std::size_t, Page>;

    std::uint64_t frame_;
    Pages before_;
    Pages now_;
};

} // namespace web
