#include "editor/TemplateCache.h"

#include "model/CodePage.h"
#include "platform/Files.h"

namespace editor {

std::optional<model::Text> TemplateCache::text(model::TextView fileName) {
    const std::filesystem::path path = platform::fullPath(model::nativePath(fileName));
    if (text_.empty() || path != path_) {
        model::Text read;
        if (platform::readFile(path, read)) {
            return {};
        }
        path_ = path;
        text_ = std::move(read);
    }
    return text_;
}

} // namespace editor
