#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "compile/SourceFiles.h"
#include "workshop/HelpProject.h"

namespace compile {

/// Where a line of the project stands.
using PlaceOf = std::function<Place(const workshop::Line&)>;

/// The pages of a project by their context numbers, as packed addresses in UTF-8. Whatever keeps an
/// application from finding its page is said.
std::map<std::uint32_t, std::string> readContexts(const workshop::HelpProject& project,
                                                  const PlaceOf& placeOf, SourceFiles& files,
                                                  Messages& messages);

} // namespace compile
