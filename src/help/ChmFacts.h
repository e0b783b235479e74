#pragma once

#include <map>

#include "help/ChmFile.h"

namespace help {

/// What a compiled help file says about itself. Paths are as the compiler wrote them, in the help's
/// own code page; what is missing is empty.
struct ChmFacts {
    std::string title;
    std::string contentsFile;
    std::string indexFile;
    std::string homePage;
    unsigned codePage = 1252;
    std::map<unsigned, std::string> contexts; ///< pages by context number
};

/// Damaged parts are missing parts.
ChmFacts readFacts(const ChmFile& file);

} // namespace help
