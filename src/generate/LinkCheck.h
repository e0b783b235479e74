#pragma once

#include "generate/ProjectCheck.h"

namespace generate {

/// An address with the characters of "%20" and the like in their places.
model::Text unescaped(model::TextView address);

/// The findings about links, pictures and topics that nothing leads to.
void checkLinks(const model::TopicOutline& outline, const model::ProjectOptions& options,
                const std::filesystem::path& outputFolder, std::vector<Finding>& findings);

} // namespace generate
