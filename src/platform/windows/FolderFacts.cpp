#include "platform/FolderFacts.h"

#include "platform/Files.h"

namespace platform {

FolderFacts::FolderFacts(const std::filesystem::path& folder) : folder_(folder) {}

FolderFacts::~FolderFacts() = default;

std::optional<FileFacts> FolderFacts::of(const std::string& place) const {
    return fileFacts(folder_ / pathFromUtf8(place));
}

} // namespace platform
