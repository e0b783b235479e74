#pragma once

#include <filesystem>
#include <system_error>

#include "text/Text.h"

namespace editor {

/// The file from which a browser shows a page. Only the person can read it, and it goes away with
/// this.
class PreviewFile {
public:
    PreviewFile() = default;
    ~PreviewFile() { remove(); }
    PreviewFile(const PreviewFile&) = delete;
    PreviewFile& operator=(const PreviewFile&) = delete;

    /// Writes a page; whatever the path led to before is no more.
    std::error_code write(const std::filesystem::path& file, text::TextView page);

    void remove();

    const std::filesystem::path& path() const { return file_; } ///< empty before it is written

private:
    std::filesystem::path file_; ///< empty when there is none to remove
};

} // namespace editor
