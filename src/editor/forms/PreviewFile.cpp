#include "editor/forms/PreviewFile.h"

#include "platform/Files.h"
#include "text/CodePage.h"

namespace editor {

std::error_code PreviewFile::write(const std::filesystem::path& file, text::TextView page) {
    remove();
    // One that is there may be open to others, or be a link to anywhere: it is no more.
    std::error_code ignored;
    if (!std::filesystem::is_directory(std::filesystem::symlink_status(file, ignored))) {
        std::filesystem::remove(file, ignored);
    }
    const text::Bytes bytes = text::CodePage().encoded(page, text::Missing::reference);
    const std::error_code error =
        platform::replaceFile(file, bytes.value, platform::Access::owner, platform::Arrival::some);
    if (!error) {
        file_ = file;
    }
    return error;
}

void PreviewFile::remove() {
    std::error_code ignored;
    if (!file_.empty()) {
        std::filesystem::remove(file_, ignored);
    }
    file_.clear();
}

} // namespace editor
