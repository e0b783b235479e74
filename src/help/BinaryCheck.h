#pragma once

#include <string>
#include <vector>

#include "help/ChmFile.h"

/// Contents and index in their binary forms, by whatever compiler; a help that has none is not at
/// fault.
namespace help {

/// What is wrong with "#TOCIDX": where its nodes lie, and what they lead to.
std::vector<std::string> contentsFaults(const ChmFile& file);

/// What is wrong with the keyword trees: how their blocks are linked, and what keywords lead to.
std::vector<std::string> keywordFaults(const ChmFile& file);

} // namespace help
