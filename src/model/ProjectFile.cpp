#include "model/ProjectFile.h"

#include "platform/Files.h"
#include "text/Path.h"

namespace model {

using text::Message;
using text::MessageIcon;

namespace fs = std::filesystem;

namespace {

/// Nobody but its owner reads it: who may read the original has not been asked.
std::error_code keepAside(const fs::path& file) {
    std::string bytes;
    if (const std::error_code error = platform::readFile(file, bytes)) {
        return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
    }
    const std::error_code error =
        platform::replaceFile(backupFile(file), bytes, platform::Access::owner);
    return error == std::errc::permission_denied ? platform::FileError::folderIsClosed : error;
}

} // namespace

Message fileNotFoundMessage(const fs::path& path) {
    return {"File \"" + text::displayText(path) + "\" Not Found", "File Open Error",
            MessageIcon::information};
}

std::error_code readProjectFile(const fs::path& path, text::Bytes& file) {
    constexpr std::size_t enoughForHeader = 4096;
    std::error_code error = platform::readPart(path, file.value, 0, enoughForHeader);
    if (!error && formatOf(file.value) != ProjectFormat::unknown) {
        error = platform::readFile(path, file.value);
    }
    return error;
}

LoadOutcome loadProject(Project& project, const fs::path& path) {
    platform::FileState state(path);
    text::Bytes file;
    if (const std::error_code error = readProjectFile(path, file)) {
        return {error};
    }
    state.setContents(file.value);
    ParsedProject parsed = parseProject(std::move(file));
    project.replace(std::move(parsed.outline), std::move(parsed.options), path);
    project.origin().file = state;
    if (parsed.stop != LoadStop::none) {
        project.origin().topicsRead = project.outline().count();
    }
    return {{}, parsed.stop, parsed.stopLine};
}

std::error_code make_error_code(SaveRefusal refusal) {
    class Category : public std::error_category {
        const char* name() const noexcept override { return "project file"; }
        std::string message(int refusal) const override {
            switch (static_cast<SaveRefusal>(refusal)) {
            case SaveRefusal::partlyRead:
                return "the file holds more than could be read";
            case SaveRefusal::beingWritten:
                return "another program is writing the file";
            case SaveRefusal::changedMeanwhile:
                break;
            }
            return "the file was changed by another program since it was read";
        }
    };
    static const Category category;
    return {static_cast<int>(refusal), category};
}

fs::path backupFile(const fs::path& project) {
    fs::path file;
    int number = 1;
    do {
        file = project;
        file.replace_extension();
        file += number == 1 ? ".bak" : ".bak" + std::to_string(number);
        file += project.extension();
        ++number;
    } while (platform::isFile(file));
    return file;
}

std::error_code saveProject(Project& project, const fs::path& path, Overwrite overwrite,
                            const fs::path& copy) {
    ProjectOrigin& origin = project.origin();
    const bool isOwn =
        project.hasFile()
        && (path == project.projectPath() || platform::isSameFile(path, project.projectPath()));
    if (isOwn && overwrite == Overwrite::whatWasRead) {
        if (origin.file.differs(path)) {
            return SaveRefusal::changedMeanwhile;
        }
        if (origin.topicsRead) {
            return SaveRefusal::partlyRead;
        }
    }
    if (isOwn && origin.topicsRead && copy.empty()) {
        if (const std::error_code error = keepAside(path)) {
            return error;
        }
    }
    const text::Bytes file = formatProject(project.outline(), project.options());
    if (const std::error_code error = copy.empty()
                                          ? platform::replaceFile(path, file.value)
                                          : platform::overwriteFile(path, file.value, copy)) {
        return error;
    }
    project.setProjectPath(path);
    origin = {platform::FileState(path), {}};
    origin.file.setContents(file.value);
    project.markSaved();
    return {};
}

} // namespace model
