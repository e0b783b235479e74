#include "platform/FolderFacts.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/posix/Status.h"

namespace platform {

FolderFacts::FolderFacts(const std::filesystem::path& folder)
    : folder_(folder), descriptor_(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {}

FolderFacts::~FolderFacts() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

std::optional<FileFacts> FolderFacts::of(const std::string& place) const {
    struct stat status {};
    return ::fstatat(descriptor_, place.c_str(), &status, 0) == 0 ? std::optional(factsOf(status))
                                                                  : std::nullopt;
}

} // namespace platform
