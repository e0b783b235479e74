#include "generate/OwnFiles.h"

#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/Path.h"

namespace generate {

namespace fs = std::filesystem;
using text::Text;

OwnFiles::OwnFiles(const fs::path& projectFile, fs::path programFolder)
    : project_(projectFile), folder_(projectFile.parent_path()),
      programFolder_(std::move(programFolder)), files_(folder_) {}

std::optional<OwnFiles::Found> OwnFiles::find(const Text& place) {
    if (!model::pageNameFault(place).empty()) {
        return {};
    }
    const fs::path file = project_.empty() ? fs::path() : files_.find(place);
    if (platform::isFile(file)) {
        const bool isOurs =
            !platform::leadsOutOf(folder_, file) && !platform::isSameFile(file, project_);
        return isOurs ? std::optional(Found{
                   text::plainPath(text::displayText(file.lexically_relative(folder_))), file})
                      : std::nullopt;
    }
    for (const char* name :
         {model::topicPicture, model::homePicture, model::previousPicture, model::nextPicture}) {
        Text usual = Text(model::imageFolderName) + '/' + name;
        if (model::pageKey(place) == model::pageKey(usual)) {
            return Found{std::move(usual), programFolder_ / name};
        }
    }
    return {};
}

} // namespace generate
