#include "generate/GeneratedFile.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/Path.h"

namespace generate {

namespace fs = std::filesystem;

namespace {

constexpr const char* isProject = "is the project itself";

} // namespace

fs::path siblingFile(const fs::path& path, std::string_view extension) {
    std::u8string name = path.filename().u8string();
    name.erase(std::min(name.find(u8'.'), name.size()));
    name += u8'.';
    name.append(extension.begin(), extension.end());
    return path.parent_path() / name;
}

bool haveSameName(const fs::path& one, const fs::path& other) {
    return text::lowerCase(text::displayText(one.filename()))
           == text::lowerCase(text::displayText(other.filename()));
}

std::optional<model::FileFailure> outputFault(const fs::path& output, const fs::path& project) {
    if (output == project || platform::isSameFile(output, project)) {
        return model::FileFailure{output, isProject};
    }
    return {};
}

void noteFailure(model::FileFailures& failures, const fs::path& path,
                 const std::error_code& error) {
    if (error) {
        failures.push_back({path, error.message()});
    }
}

void GeneratedFiles::write(const fs::path& path, const text::Bytes& contents) {
    const std::error_code error =
        path == project_ ? platform::FileError::isSpared
                         : platform::writeFile(path, contents.value, facts_ ? &*facts_ : nullptr);
    if (error == platform::FileError::isSpared) {
        failures_.push_back({path, isProject});
    } else {
        noteFailure(failures_, path, error);
    }
}

} // namespace generate
