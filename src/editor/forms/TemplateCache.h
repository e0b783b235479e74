#pragma once

#include <filesystem>
#include <optional>

#include "text/CodePage.h"

namespace editor {

/// The page template that new bodies start from. It is read once, and again when another file or
/// code page is asked for.
class TemplateCache {
public:
    /// The whole file as it stands; nothing when there is no such file. A name without a folder is
    /// looked for in the current one.
    std::optional<text::Text> text(text::TextView fileName, const text::CodePage& codePage);

    void clear() { text_.clear(); }

private:
    std::filesystem::path path_;
    text::CodePage codePage_; ///< in which it was read
    text::Text text_;
};

} // namespace editor
