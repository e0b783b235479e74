#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workshop/HelpProject.h"

namespace compile {

/// A file of texts for help in dialogs as it is packed: comments are gone, and the names of its
/// texts have become the numbers that the project gives them.
std::string popupTexts(std::string_view bytes, const std::vector<workshop::ContextNumber>& numbers);

} // namespace compile
