#include "compile/ProjectInput.h"

#include <algorithm>

#include "compile/SourceFiles.h"
#include "platform/Files.h"
#include "text/FileFinder.h"
#include "text/Text.h"

namespace compile {

namespace fs = std::filesystem;

namespace {

fs::path slashed(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return platform::pathFromUtf8(path);
}

class Headers {
public:
    explicit Headers(fs::path folder) : finder_(std::move(folder)) {}

    std::optional<std::string> operator()(const std::string& path) {
        if (splitAddress(path).isElsewhere) {
            return {};
        }
        std::string bytes;
        const fs::path file = finder_.findNative(slashed(path));
        if (platform::readFile(file, bytes, workshop::mostIncludedBytes)) {
            return {};
        }
        return bytes;
    }

private:
    text::FileFinder finder_;
};

} // namespace

Place ProjectInput::placeOf(const workshop::Line& line) const {
    return {line.file.empty() ? shown : shownFolder + line.file, line.line};
}

fs::path ProjectInput::output(Messages& messages) const {
    const workshop::Line& option = project.options.compiledFile;
    fs::path beside = file;
    beside.replace_extension(".chm");
    if (option.text.empty()) {
        return beside;
    }
    constexpr std::size_t drive = 1;
    if (splitAddress(option.text).isElsewhere
        || (option.text.find(':') == drive && !slashed(option.text).is_absolute())) {
        messages.warn(placeOf(option), "\"" + option.text + "\" is not a file of this machine");
        return beside;
    }
    fs::path output = folder / slashed(option.text);
    if (!text::equalIgnoringCase(platform::utf8FromPath(output.extension()), ".chm")) {
        output += ".chm"; // a project may not choose to replace any other kind of file
    }
    return output;
}

std::optional<ProjectInput> readProjectFile(const fs::path& path, Messages& messages) {
    ProjectInput input;
    input.file = platform::fullPath(path);
    input.folder = input.file.parent_path();
    input.shown = platform::utf8FromPath(path);
    input.shownFolder = input.shown.substr(0, input.shown.find_last_of("/\\") + 1);
    std::string bytes;
    if (const std::error_code error = platform::readFile(input.file, bytes)) {
        messages.fail({input.shown}, "cannot be read: " + error.message());
        return {};
    }
    input.project = workshop::readProject(bytes, Headers(input.folder));
    for (const workshop::Message& message : input.project.messages) {
        messages.add(message.severity, input.placeOf({{}, message.line, message.file}),
                     message.text);
    }
    return input;
}

} // namespace compile
