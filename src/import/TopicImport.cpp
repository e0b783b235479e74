#include "import/TopicImport.h"

#include "model/FieldReader.h"

namespace importer {

using model::LoadStop;
using model::Topic;
using text::Text;

namespace {

Topic readTopic(model::FieldReader& fields, bool& cut) {
    Topic topic;
    for (Text Topic::*field : model::topicFields) {
        topic.*field = model::topicText(field, fields.next());
        cut = cut || fields.cutAtEnd();
    }
    topic.body = model::topicText(&Topic::body, fields.next());
    cut = cut || fields.cutInQuotes();
    return topic;
}

/// Reads a file of format 1. A file that ends inside a topic gives that topic as
/// far as it goes.
void readTopics(model::FieldReader& fields, FileTopics& result) {
    if (fields.next() != model::projectFileHeader) {
        result.stop = LoadStop::unknownFormat;
        return;
    }
    constexpr int skippedFields = 8; // seven options and the first topic's marker
    text::TextView marker;
    for (int i = 0; i < skippedFields; ++i) {
        result.cut = result.cut || (i + 1 < skippedFields && fields.atEnd());
        marker = fields.next();
    }
    while (!fields.atEnd()) {
        if (marker != model::topicMarker) {
            result.stop = LoadStop::corrupted;
            return;
        }
        result.topics.push_back(readTopic(fields, result.cut));
        marker = fields.next();
    }
}

/// Reads a file of format 2, of which a topic that is cut is left out.
void readWholeTopics(text::Bytes bytes, FileTopics& result) {
    const model::ParsedProject parsed = model::parseProject(std::move(bytes));
    result.topics.assign(parsed.outline.begin(), parsed.outline.end());
    result.cut = !whereCut(parsed.stop).empty();
    result.stop = parsed.stop;
}

} // namespace

FileTopics readFileTopics(const std::filesystem::path& file) {
    FileTopics result;
    text::Bytes bytes;
    result.readError = model::readProjectFile(file, bytes);
    if (!result.readError) {
        if (model::formatOf(bytes.value) == model::ProjectFormat::two) {
            readWholeTopics(std::move(bytes), result);
        } else {
            model::FieldReader fields(std::move(bytes));
            readTopics(fields, result);
        }
    }
    return result;
}

text::Bytes formatTopicFile(const model::TopicOutline& outline) {
    constexpr int keptLines = 8; // the header and seven options
    const text::Bytes head = model::formatProject({}, {});
    const text::Bytes whole = model::formatProject(outline, {});
    std::size_t end = 0;
    for (int i = 0; i < keptLines; ++i) {
        end = head.value.find('\n', end) + 1;
    }
    return text::Bytes(head.value.substr(0, end) + whole.value.substr(head.value.size()));
}

ImportOutcome importTopics(model::Project& project, const std::filesystem::path& file,
                           const std::function<bool(int row)>& wanted) {
    FileTopics source = readFileTopics(file);
    ImportOutcome outcome;
    outcome.readError = source.readError;
    outcome.message = messageFor(source.stop);
    outcome.cut = source.cut;
    const model::UndoStep step(project, "Import Topics");
    int row = 0;
    for (Topic& topic : source.topics) {
        if (!wanted(++row)) {
            continue;
        }
        topic.status = "N";
        topic.contextId.clear();
        topic.contextNumber.clear();
        if (appendTopic(project, std::move(topic), outcome)) {
            project.markChanged(model::statusNew);
        }
    }
    ensureCurrent(project);
    return outcome;
}

} // namespace importer
