#pragma once

#include "model/TopicOutline.h"

namespace generate {

/// The table of contents (`.hhc`), a sitemap whose lists follow the topics' depths. A jump over
/// several depths opens one list but closes as many as it jumped: on purpose, the lists are not
/// balanced.
text::Text contentsFile(const model::TopicOutline& outline);

} // namespace generate
