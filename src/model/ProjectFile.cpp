#include "model/ProjectFile.h"

#include <charconv>

#include "model/FieldReader.h"
#include "model/Helper.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/Path.h"

namespace model {

using text::appendLine;
using text::lineBreak;
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

/// The code page of project files.
const text::CodePage& filesCodePage() {
    static const text::CodePage western;
    return western;
}

/// Reads the option fields. Those that a cut file lacks keep the values of a new project.
class OptionReader {
public:
    explicit OptionReader(FieldReader& fields) : fields_(fields) {}

    /// False when the file ended before the last field.
    bool complete() const { return complete_; }

    void title(Text& option) {
        if (more()) {
            option = filesCodePage().decodedHtml(fields_.next());
        }
    }
    void html(Text& option) {
        if (more()) {
            option = filesCodePage().decodedHtml(trim(fields_.next()));
        }
    }
    void name(Text& option) {
        if (more()) {
            option = filesCodePage().decoded(trim(fields_.next()));
        }
    }
    void flag(bool& option) {
        if (more()) {
            option = text::lowerAscii(fields_.next()) == "true";
        }
    }
    void navigation(NavigationType& option) {
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
    visitOptions(options, reader);
    return reader.complete();
}

/// Reads what follows a topic's marker; false when the file ends in it. A body may be cut.
bool readTopic(FieldReader& fields, Topic& topic) {
    for (Text Topic::*field : topicFields) {
        topic.*field = topicText(field, fields.next());
        if (fields.cutAtEnd()) {
            return false;
        }
    }
    topic.body = topicText(&Topic::body, fields.next());
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

/// Writes the lines of a project file.
class FileWriter {
public:
    explicit FileWriter(std::string& file) : file_(file) {}

    void line(TextView ascii) { appendLine(file_, ascii); }

    /// A field; letters that the code page lacks become references.
    void html(TextView field) {
        appendQuotedField(file_, field, filesCodePage());
        file_ += lineBreak;
    }
    void title(TextView field) { html(field); }
    void name(TextView field) { html(field); }
    void flag(bool value) { line(value ? "True" : "False"); }
    void navigation(NavigationType type) { line(std::to_string(static_cast<int>(type))); }

private:
    std::string& file_;
};

void formatTopic(FileWriter& file, const Topic& topic) {
    file.line(topicMarker);
    for (Text Topic::*field : topicFields) {
        file.html(topic.*field);
    }
    file.html(topic.body);
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

Text topicText(Text Topic::*field, TextView bytes) {
    const bool isHtml = field == &Topic::title || field == &Topic::shortDescription
                        || field == &Topic::keywords || field == &Topic::body;
    return isHtml ? filesCodePage().decodedHtml(bytes) : filesCodePage().decoded(bytes);
}

ParsedProject parseProject(text::Bytes file) {
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

text::Bytes formatProject(const TopicOutline& outline, const ProjectOptions& options) {
    text::Bytes file;
    file.value.reserve(sizeBound(outline, options));
    FileWriter writer(file.value);
    writer.line(projectFileHeader);
    visitOptions(options, writer);
    for (const Topic& topic : outline) {
        formatTopic(writer, topic);
    }
    return file;
}

std::error_code readProjectFile(const fs::path& path, text::Bytes& file) {
    constexpr std::size_t enoughForHeader = 4096;
    std::error_code error = platform::readPart(path, file.value, 0, enoughForHeader);
    if (!error && FieldReader(file).next() == projectFileHeader) {
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
