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

/// What a context number of a project leads to.
struct ContextPage {
    std::size_t file;
    std::string address; ///< as it is packed, in UTF-8
    Place place;         ///< of the line that says so
};
using Contexts = std::map<std::uint32_t, ContextPage>;

/// The pages of a project by their context numbers. Whatever keeps an application from finding its
/// page is said.
Contexts readContexts(const workshop::HelpProject& project, const PlaceOf& placeOf,
                      SourceFiles& files, Messages& messages);

/// Takes out, and says, those whose file is not in the help. To be called when all is read.
void dropMissing(Contexts& contexts, const SourceFiles& files, Messages& messages);

} // namespace compile
