#pragma once

#include "model/TopicOutline.h"

namespace app {

/// A small help that shows what there is: levels, links between pages, a list and a table, keywords
/// and contexts. To be looked at, changed and generated.
model::TopicOutline exampleOutline();

} // namespace app
