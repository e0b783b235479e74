#pragma once

#include <vector>

#include "text/Text.h"

namespace importer {

/// A body in the parts that begin at anchors, in the order of these: what stands before the first
/// one, and for each anchor what goes on to the next one in the body; empty for an anchor that is
/// not there. A heading goes with the anchor in it or right before it. Elements that a cut goes
/// through are closed before it, and not opened again.
std::vector<text::Text> cutAt(text::TextView body, const std::vector<text::Text>& anchors);

/// The names of all places in a body that links can lead to.
std::vector<text::Text> anchorsIn(text::TextView body);

} // namespace importer
