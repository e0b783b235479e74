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
    std::string compiler;  ///< by which it was made
    unsigned language = 0; ///< an LCID; 0 where the help does not say
    unsigned codePage = 1252;
    bool isSearchable = false; ///< says that it has an index for the full text search
    std::map<unsigned, std::string> contexts; ///< pages by context number
};

/// Damaged parts are missing parts. Contents, index and home page that the help itself does not
/// name are those of its window, and contents and index otherwise the first ones that there are.
ChmFacts readFacts(const ChmFile& file);

} // namespace help
