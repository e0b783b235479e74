#pragma once

#include "generate/TopicPage.h"
#include "model/FileFailure.h"

namespace generate {

/// What a generation run has to say.
struct GenerationReport {
    text::Text text; ///< as shown to the author; no line break at its end
    PageCounts pages;
    int contexts = 0; ///< topics that an application can call up
    model::FileFailures failures;
};

} // namespace generate
