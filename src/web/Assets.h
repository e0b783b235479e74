#pragma once

#include <string_view>

namespace web {

// The files of assets/web, which the build puts into the program.
extern const std::string_view siteStyle;
extern const std::string_view siteScript;

} // namespace web
