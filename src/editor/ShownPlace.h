#pragma once

#include <optional>

#include "model/ProjectOptions.h"
#include "text/Text.h"

namespace editor {

/// A place of a page, by what can be seen before it: every character but blanks counts, and every
/// picture. `behind` is right behind the last of them, otherwise the place is right before the
/// next one.
struct ShownPlace {
    std::size_t seen = 0;
    bool behind = false;
};

/// Where that is in the body of which the page was made; nothing when it is in the title, or
/// beyond the page.
std::optional<std::size_t> bodyPlace(const ShownPlace& place, text::TextView title,
                                     text::TextView body, const model::ProjectOptions& options);

} // namespace editor
