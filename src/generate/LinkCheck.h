#pragma once

#include "generate/ProjectCheck.h"

namespace generate {

/// The findings about links, pictures and topics that nothing leads to.
void checkLinks(const model::TopicOutline& outline, const model::ProjectOptions& options,
                const std::filesystem::path& outputFolder, std::vector<Finding>& findings);

} // namespace generate
