#pragma once

#include "model/TopicOutline.h"
#include "text/Language.h"

namespace generate {

/// The names by which a workshop project knows its neighbours; no folders.
struct WorkshopFileNames {
    text::Text compiled;
    text::Text contents;
    text::Text index;
};

/// The help workshop's project file (`.hhp`) with its alias and map sections. The outline has at
/// least one topic, and each topic both context values or none. A line break in a value, which only
/// a foreign project can have, becomes a blank: it must not smuggle in lines of its own.
/// Pages that a generation refuses to write are left out, see pageNameFault().
text::Text workshopProject(const model::TopicOutline& outline, const text::Language& language,
                           const WorkshopFileNames& names);

} // namespace generate
