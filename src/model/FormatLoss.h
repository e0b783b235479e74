#pragma once

#include <vector>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

namespace model {

/// Something that would not be what it is after it was saved in format 1.
struct FormatLoss {
    int topic = 0;       ///< its position; 0 for the project
    text::TextView part; ///< "title", say
    text::TextView what; ///< "double quotes", say
};

/// All that format 1 of the project file cannot keep of a project. Letters that it writes as
/// references and that come back are kept.
std::vector<FormatLoss> lossesInFormatOne(const TopicOutline& outline,
                                          const ProjectOptions& options);

} // namespace model
