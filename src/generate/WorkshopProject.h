#pragma once

#include "model/TopicOutline.h"

namespace generate {

/// The names by which a workshop project knows its neighbours; no folders.
struct WorkshopFileNames {
    model::Text compiled;
    model::Text contents;
    model::Text index;
};

/// The help workshop's project file (`.hhp`) with its alias and map sections. The outline has at
/// least one topic, and each topic both context values or none.
model::Text workshopProject(const model::TopicOutline& outline, const WorkshopFileNames& names);

} // namespace generate
