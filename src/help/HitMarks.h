#pragma once

#include "help/HelpSearch.h"

namespace help {

/// A page, in UTF-8, in which everything is coloured that a question asks for: as many words as it
/// has, in the text that a reader sees. A hit that goes on behind a tag is coloured on both sides.
std::string withHitsMarked(const std::string& html, const HelpQuestion& question);

} // namespace help
