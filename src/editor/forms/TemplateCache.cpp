#include "editor/forms/TemplateCache.h"

#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Path.h"

namespace editor {

std::optional<text::Text> TemplateCache::text(text::TextView fileName,
                                              const text::CodePage& codePage) {
    const std::filesystem::path path = platform::fullPath(text::nativePath(fileName));
    if (text_.empty() || path != path_ || codePage != codePage_) {
        text::Text read;
        if (text::readTextFile(path, codePage.number(), read)) {
            return {};
        }
        path_ = path;
        codePage_ = codePage;
        text_ = codePage.withLetters(read);
    }
    return text_;
}

} // namespace editor
