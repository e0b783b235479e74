#include "model/ProjectFile.h"

#include <charconv>

#include "model/FieldReader.h"
#include "model/Helper.h"
#include "platform/Files.h"
#include "text/CodePage.h"

namespace model {

using text::appendLine;
using text::lineBreak;
using text::lowerCase;
using text::Message;
using text::MessageIcon;
using text::Text;
using text::TextView;
using text::trim;

namespace fs = std::filesystem;

namespace {

NavigationType navigationTypeOf(TextView field) {
    int value = 0;
    std::from_chars(field.data(), field.data() + field.size(), value);
    return static_cast<NavigationType>(value); // a number without a name stays in the file
}

/// Reads the option fields. Those that a cut file lacks keep the values of a new project.
class OptionReader {
public:
    explicit OptionReader(FieldReader& fields) : fields_(fields) {}

    /// False when the file ended before the last field.
    bool complete() const { return complete_; }

    void text(Text& option) {
        if (more()) {
            option = fields_.next();
        }
    }
    void trimmedText(Text& option) {
        if (more()) {
            option = trim(fields_.next());
        }
    }
    void flag(bool& option) {
        if (more()) {
            option = lowerCase(fields_.next()) == "true";
        }
    }
    void navigationType(NavigationType& option) {
        if (more()) {
            option = navigationTypeOf(trim(fields_.next()));
        }
    }

private:
    bool more() {
        complete_ = !fields_.atEnd();
        return complete_;
    }

    FieldReader& fields_;
    bool complete_ = true;
};

bool readOptions(FieldReader& fields, ProjectOptions& options) {
    OptionReader reader(fields);
    reader.text(options.projectName);
    reader.trimmedText(options.cssFile);
    reader.trimmedText(options.backgroundImage);
    reader.trimmedText(options.templateFile);
    reader.trimmedText(options.additionalText);
    reader.flag(options.showCopyright);
    reader.trimmedText(options.copyrightText);
    for (bool& button : options.navigationButtons) {
        reader.flag(button);
    }
    reader.navigationType(options.navigationType);
    reader.flag(options.indentedContents);
    reader.flag(options.numbering);
    reader.flag(options.documentationLinks);
    reader.flag(options.underlineLinks);
    return reader.complete();
}

/// Reads what follows a topic's marker; false when the file ends in it. A body may be cut.
bool readTopic(FieldReader& fields, Topic& topic) {
    for (Text Topic::*field : topicFields) {
        topic.*field = fields.next();
        if (fields.cutAtEnd()) {
            return false;
        }
    }
    topic.body = fields.next();
    if (topic.status.empty() && topic.body.empty()) {
        topic.status = "E";
    }
    return true;
}

LoadStop readTopics(FieldReader& fields, TopicOutline& outline) {
    // The marker is read before the end is tested, so a single stray last line ends the outline
    // without complaint.
    TextView marker = fields.next();
    while (!fields.atEnd()) {
        if (outline.full()) {
            return LoadStop::topicLimit;
        }
        if (marker != topicMarker) {
            return LoadStop::corrupted;
        }
        Topic topic;
        if (!readTopic(fields, topic)) {
            return LoadStop::unexpectedEnd;
        }
        outline.append(std::move(topic));
        if (fields.cutInQuotes()) {
            return LoadStop::endInBody;
        }
        marker = fields.next();
    }
    return LoadStop::none;
}

TextView flagText(bool flag) {
    return flag ? "True" : "False";
}

void formatOptions(Text& file, const ProjectOptions& options) {
    const auto text = [&file](TextView field) {
        appendQuotedField(file, field);
        file += lineBreak;
    };
    const auto flag = [&file](bool value) { appendLine(file, flagText(value)); };
    text(options.projectName);
    text(options.cssFile);
    text(options.backgroundImage);
    text(options.templateFile);
    text(options.additionalText);
    flag(options.showCopyright);
    text(options.copyrightText);
    for (const bool button : options.navigationButtons) {
        flag(button);
    }
    appendLine(file, std::to_string(static_cast<int>(options.navigationType)));
    flag(options.indentedContents);
    flag(options.numbering);
    flag(options.documentationLinks);
    flag(options.underlineLinks);
}

void formatTopic(Text& file, const Topic& topic) {
    appendLine(file, topicMarker);
    for (Text Topic::*field : topicFields) {
        appendQuotedField(file, topic.*field);
        file += lineBreak;
    }
    appendQuotedField(file, topic.body);
    file += lineBreak;
}

/// Room for everything, so that a large project is not copied again and again while it is put
/// together.
std::size_t sizeBound(const TopicOutline& outline, const ProjectOptions& options) {
    constexpr std::size_t perField = 4; // quotes and line break
    constexpr std::size_t fixedPart = 1000;
    std::size_t size = fixedPart + options.projectName.size() + options.cssFile.size()
                       + options.backgroundImage.size() + options.templateFile.size()
                       + options.additionalText.size() + options.copyrightText.size();
    for (const Topic& topic : outline) {
        size += topicMarker.size() + topic.body.size() + 2 * perField;
        for (Text Topic::*field : topicFields) {
            size += (topic.*field).size() + perField;
        }
    }
    return size;
}

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

std::optional<Message> messageFor(LoadStop stop) {
    switch (stop) {
    case LoadStop::unknownFormat:
        return Message{"Unknown File Format, Loading Stopped", "Error", MessageIcon::critical};
    case LoadStop::corrupted:
        return Message{"Corrupted Input File, Loading Stopped", "Error", MessageIcon::critical};
    case LoadStop::unexpectedEnd:
        return Message{"Unexpected EOF, Loading Stopped", "Error", MessageIcon::critical};
    case LoadStop::topicLimit:
        return topicLimitMessage("Loading Stopped");
    case LoadStop::none:
    case LoadStop::endInOptions:
    case LoadStop::endInBody:
        break;
    }
    return {};
}

text::TextView whereCut(LoadStop stop) {
    switch (stop) {
    case LoadStop::endInBody:
        return "ends inside the text of its last topic";
    case LoadStop::endInOptions:
        return "ends before its first topic";
    default:
        return {};
    }
}

Message fileNotFoundMessage(const fs::path& path) {
    return {"File \"" + text::displayText(path) + "\" Not Found", "File Open Error",
            MessageIcon::information};
}

ParsedProject parseProject(Text file) {
    ParsedProject project;
    FieldReader fields(std::move(file));
    if (fields.next() != projectFileHeader) {
        project.stop = LoadStop::unknownFormat;
    } else if (!readOptions(fields, project.options)) {
        project.stop = LoadStop::endInOptions;
    } else {
        project.stop = readTopics(fields, project.outline);
    }
    project.stopLine = project.stop == LoadStop::none ? 0 : fields.line();
    return project;
}

Text formatProject(const TopicOutline& outline, const ProjectOptions& options) {
    Text file;
    file.reserve(sizeBound(outline, options));
    appendLine(file, projectFileHeader);
    formatOptions(file, options);
    for (const Topic& topic : outline) {
        formatTopic(file, topic);
    }
    return file;
}

std::error_code readProjectFile(const fs::path& path, Text& file) {
    constexpr std::size_t enoughForHeader = 4096;
    std::error_code error = platform::readPart(path, file, 0, enoughForHeader);
    if (!error && FieldReader(file).next() == projectFileHeader) {
        error = platform::readFile(path, file);
    }
    return error;
}

LoadOutcome loadProject(Project& project, const fs::path& path) {
    platform::FileState state(path);
    Text file;
    if (const std::error_code error = readProjectFile(path, file)) {
        return {error};
    }
    state.setContents(file);
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
    const Text file = formatProject(project.outline(), project.options());
    if (const std::error_code error = copy.empty() ? platform::replaceFile(path, file)
                                                   : platform::overwriteFile(path, file, copy)) {
        return error;
    }
    project.setProjectPath(path);
    origin = {platform::FileState(path), {}};
    origin.file.setContents(file);
    project.markSaved();
    return {};
}

} // namespace model
