#pragma once

#include "platform/Files.h"
#include "text/Text.h"

namespace app {

/// `extension` begins with its point; letter case is ignored.
inline bool hasExtension(const std::filesystem::path& file, text::TextView extension) {
    return text::equalIgnoringCase(platform::utf8FromPath(file.extension()), extension);
}

} // namespace app
