#pragma once

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

namespace bench {

/// An outline on three levels whose bodies have about `bodySize` bytes of ordinary mark-up, with
/// line breaks, commas, links and pictures.
model::TopicOutline sampleOutline(int topics, std::size_t bodySize);

model::ProjectOptions sampleOptions();

} // namespace bench
