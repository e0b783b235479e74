#include "model/ProjectFormat.h"

#include <charconv>

#include "model/FieldReader.h"
#include "model/Helper.h"
#include "text/Unicode.h"

namespace model {

using text::appendLine;
using text::lineBreak;
using text::Message;
using text::MessageIcon;
using text::Text;
using text::TextView;
using text::trim;

namespace {

// What the head of format 2 can tell. Where it does not tell whether every character is to be kept,
// that is the only reason for which a project in the default language can be in this format.
constexpr TextView languageKey = "Language";
constexpr TextView keepingKey = "KeepEveryCharacter";

bool isDefaultLanguage(const ProjectOptions& options) {
    return options.languageTag == text::defaultLanguage;
}

NavigationType navigationTypeOf(TextView field) {
    int value = 0;
    std::from_chars(field.data(), field.data() + field.size(), value);
    return static_cast<NavigationType>(value); // a number without a name stays in the file
}

/// The code page of project files of format 1.
const text::CodePage& filesCodePage() {
    static const text::CodePage western;
    return western;
}

/// UTF-8 with the replacement character in place of damaged bytes.
Text soundText(TextView utf8) {
    if (text::isAscii(utf8) || text::isUtf8(utf8)) {
        return Text(utf8);
    }
    Text text;
    while (!utf8.empty()) {
        text::appendUtf8(text, text::takeUtf8(utf8));
    }
    return text;
}

/// Reads the option fields. Those that a cut file lacks keep the values of a new project.
class OptionReader {
public:
    OptionReader(FieldReader& fields, ProjectFormat format) : fields_(fields), format_(format) {}

    /// False when the file ended before the last field.
    bool complete() const { return complete_; }

    void title(Text& option) {
        if (more()) {
            const TextView field = fields_.next();
            option = isWhole() ? soundText(field) : filesCodePage().decodedHtml(field);
        }
    }
    void html(Text& option) {
        if (more()) {
            const TextView field = fields_.next();
            option = isWhole() ? soundText(field) : filesCodePage().decodedHtml(trim(field));
        }
    }
    void name(Text& option) {
        if (more()) {
            const TextView field = fields_.next();
            option = isWhole() ? soundText(field) : filesCodePage().decoded(trim(field));
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

    bool isWhole() const { return format_ == ProjectFormat::two; }

    FieldReader& fields_;
    ProjectFormat format_;
    bool complete_ = true;
};

/// Takes a line of format 2's head; false when it is none.
bool takeHeadLine(TextView line, ProjectOptions& options, std::optional<bool>& keepsAll) {
    const std::size_t equals = line.find('=');
    if (equals == TextView::npos) {
        return false;
    }
    const TextView key = trim(line.substr(0, equals));
    const TextView value = trim(line.substr(equals + 1));
    if (text::equalIgnoringCase(key, languageKey)) {
        options.languageTag = soundText(value);
    } else if (text::equalIgnoringCase(key, keepingKey)) {
        keepsAll = text::lowerAscii(value) == "true";
    } else {
        appendLine(options.otherKeys, soundText(line));
    }
    return true;
}

/// Reads what stands between the first line of format 2 and the fields.
LoadStop readHead(FieldReader& fields, ProjectOptions& options) {
    LoadStop stop = LoadStop::none;
    std::optional<bool> keepsAll;
    for (;;) {
        const TextView line = fields.nextLine();
        if (fields.cutAtEnd()) {
            stop = LoadStop::endInOptions;
            break;
        }
        if (trim(line).empty()) {
            break;
        }
        if (!takeHeadLine(line, options, keepsAll)) {
            stop = LoadStop::corrupted;
            break;
        }
    }
    options.keepsEveryCharacter = keepsAll.value_or(isDefaultLanguage(options));
    return stop;
}

bool readOptions(FieldReader& fields, ProjectFormat format, ProjectOptions& options) {
    OptionReader reader(fields, format);
    visitOptions(options, reader);
    return reader.complete();
}

/// Reads what follows a topic's marker; false when the file ends in it. A body may be cut.
bool readTopic(FieldReader& fields, ProjectFormat format, Topic& topic) {
    const auto take = [&](Text Topic::*field) {
        const TextView bytes = fields.next();
        topic.*field = format == ProjectFormat::two ? soundText(bytes) : topicText(field, bytes);
    };
    for (Text Topic::*field : topicFields) {
        take(field);
        if (fields.cutAtEnd()) {
            return false;
        }
    }
    take(&Topic::body);
    if (topic.status.empty() && topic.body.empty()) {
        topic.status = "E";
    }
    return true;
}

LoadStop readTopics(FieldReader& fields, ProjectFormat format, TopicOutline& outline) {
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
        outline.append({});
        if (!readTopic(fields, format, outline.at(outline.count()))) {
            outline.remove(outline.count());
            return LoadStop::unexpectedEnd;
        }
        if (fields.cutInQuotes()) {
            return LoadStop::endInBody;
        }
        marker = fields.next();
    }
    return LoadStop::none;
}

/// Appends a text as it stands in format 2. Line feeds are quoted, too: nothing happens to them
/// then when other tools convert line ends to and fro.
void appendWholeField(std::string& file, TextView text) {
    const bool hasBlanks = trim(text).size() != text.size();
    if (!hasBlanks && text.find_first_of(",\"\r\n") == TextView::npos) {
        file += text;
        return;
    }
    file += '"';
    for (std::size_t quote = 0; (quote = text.find('"')) != TextView::npos;) {
        file += text.substr(0, quote + 1);
        file += '"';
        text.remove_prefix(quote + 1);
    }
    file += text;
    file += '"';
}

/// Writes the lines of a project file.
class FileWriter {
public:
    FileWriter(std::string& file, ProjectFormat format) : file_(file), format_(format) {}

    void line(TextView text) { appendLine(file_, text); }

    void head(const ProjectOptions& options) {
        line(formatTwoHeader);
        appendLine(file_, languageKey, "=", options.languageTag);
        if (options.keepsEveryCharacter != isDefaultLanguage(options)) {
            appendLine(file_, keepingKey, "=", options.keepsEveryCharacter ? "True" : "False");
        }
        file_ += options.otherKeys;
        line({});
    }

    /// A field; in format 1, letters that the code page lacks become references.
    void html(TextView field) {
        if (format_ == ProjectFormat::two) {
            appendWholeField(file_, field);
        } else {
            appendQuotedField(file_, field, filesCodePage());
        }
        file_ += lineBreak;
    }
    void title(TextView field) { html(field); }
    void name(TextView field) { html(field); }
    void flag(bool value) { line(value ? "True" : "False"); }
    void navigation(NavigationType type) { line(std::to_string(static_cast<int>(type))); }

private:
    std::string& file_;
    ProjectFormat format_;
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
                       + options.additionalText.size() + options.copyrightText.size()
                       + options.otherKeys.size();
    for (const Topic& topic : outline) {
        size += topicMarker.size() + topic.body.size() + 2 * perField;
        for (Text Topic::*field : topicFields) {
            size += (topic.*field).size() + perField;
        }
    }
    return size;
}

text::Bytes formatAs(ProjectFormat format, const TopicOutline& outline,
                     const ProjectOptions& options) {
    text::Bytes file;
    file.value.reserve(sizeBound(outline, options));
    FileWriter writer(file.value, format);
    if (format == ProjectFormat::two) {
        writer.head(options);
    } else {
        writer.line(projectFileHeader);
    }
    visitOptions(options, writer);
    for (const Topic& topic : outline) {
        formatTopic(writer, topic);
    }
    return file;
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

bool isHtmlField(Text Topic::*field) {
    return field == &Topic::title || field == &Topic::shortDescription || field == &Topic::keywords
           || field == &Topic::body;
}

Text topicText(Text Topic::*field, TextView bytes) {
    return isHtmlField(field) ? filesCodePage().decodedHtml(bytes) : filesCodePage().decoded(bytes);
}

ProjectFormat formatOf(TextView file) {
    constexpr std::size_t enough = 4096;
    return FieldReader(text::Bytes(Text(file.substr(0, enough)))).readHeader();
}

ParsedProject parseProject(text::Bytes file) {
    ParsedProject project;
    FieldReader fields(std::move(file));
    const ProjectFormat format = fields.readHeader();
    if (format == ProjectFormat::unknown) {
        project.stop = LoadStop::unknownFormat;
    } else if (format == ProjectFormat::two) {
        project.stop = readHead(fields, project.options);
    }
    if (project.stop == LoadStop::none) {
        project.stop = readOptions(fields, format, project.options)
                           ? readTopics(fields, format, project.outline)
                           : LoadStop::endInOptions;
    }
    project.stopLine = project.stop == LoadStop::none ? 0 : fields.line();
    return project;
}

ProjectFormat formatFor(const ProjectOptions& options) {
    const bool fits =
        isDefaultLanguage(options) && !options.keepsEveryCharacter && options.otherKeys.empty();
    return fits ? ProjectFormat::one : ProjectFormat::two;
}

text::Bytes formatProject(const TopicOutline& outline, const ProjectOptions& options) {
    return formatAs(formatFor(options), outline, options);
}

text::Bytes formatWhole(const TopicOutline& outline, const ProjectOptions& options) {
    return formatAs(ProjectFormat::two, outline, options);
}

} // namespace model
