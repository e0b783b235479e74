#pragma once

#include <string>

namespace compile {

/// "$OBJINST": how the words of the full text search are found in texts of a language.
std::string wordBreaker(unsigned language);

} // namespace compile
