#include "generate/TopicValidation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/PagePath.h"

namespace generate {
namespace {

using model::Project;
using model::Topic;
using text::append;
using text::appendLine;
using text::lineBreak;
using text::Text;
using text::TextView;

void addContextHeader(Text& report, ReportHeaders& headers) {
    if (!headers.context) {
        append(report, lineBreak, "Problem with Topic Context:", lineBreak);
        headers.context = true;
    }
}

/// Whether two of them are the same: where none are, no pairs have to be compared.
bool haveEqual(std::vector<TextView> texts) {
    std::sort(texts.begin(), texts.end());
    return std::adjacent_find(texts.begin(), texts.end()) != texts.end();
}

/// One round over all pairs; true when it renamed something, so that the new names have to be
/// compared in turn. `keys` holds every topic's page key.
bool renameRound(Project& project, std::vector<Text>& keys, Text& report, ReportHeaders& headers) {
    bool renamed = false;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t j = i + 1; !keys[i].empty() && j < keys.size(); ++j) {
            if (keys[i] != keys[j]) {
                continue;
            }
            if (!headers.duplicates) {
                append(report, lineBreak, "Duplicate Topic Filenames:", lineBreak);
                headers.duplicates = true;
            }
            const int position = static_cast<int>(j) + 1;
            const Text oldName = project.outline().at(position).fileName;
            const Text newName = renamedDuplicate(oldName);
            appendLine(report, oldName, " is renamed ", newName);
            project.setField(position, &Topic::fileName, newName);
            keys[j] = model::pageKey(newName);
            renamed = true;
        }
    }
    return renamed;
}

} // namespace

bool readsAsPositiveNumber(TextView text) {
    text = text::trim(text);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        if (text.front() == '-') {
            return false;
        }
        text.remove_prefix(1);
    }
    const auto isZeroOrPoint = [](char c) { return c == '0' || c == '.'; };
    bool pointSeen = false;
    for (const char character : text) {
        if (!text::isAsciiDigit(character) && (character != '.' || pointSeen)) {
            return false;
        }
        pointSeen = pointSeen || character == '.';
        if (!isZeroOrPoint(character)) {
            return true;
        }
    }
    return false;
}

Text renamedDuplicate(TextView fileName) {
    constexpr TextView extension = ".htm";
    TextView ending = extension;
    TextView stem = fileName;
    if (fileName.size() >= extension.size()
        && text::equalIgnoringCase(fileName.substr(fileName.size() - extension.size()),
                                   extension)) {
        stem.remove_suffix(extension.size());
    } else {
        // Not the usual page: it keeps the ending it has, if it has one.
        const std::size_t point = fileName.find_last_of("./\\");
        const bool hasEnding = point != TextView::npos && fileName[point] == '.';
        stem = fileName.substr(0, hasEnding ? point : TextView::npos);
        ending = fileName.substr(stem.size());
    }
    // Only the last digit counts, so "page10" is followed by "page10 1".
    const int digit = !stem.empty() && text::isAsciiDigit(stem.back()) ? stem.back() - '0' : 0;
    const bool counted = digit > 0;
    if (counted) {
        stem.remove_suffix(1);
    }
    Text result(stem);
    append(result, counted ? "" : " ", std::to_string(digit + 1), ending);
    return result;
}

void repairContexts(Project& project, Text& report, ReportHeaders& headers) {
    for (int position = 1; position <= project.outline().count(); ++position) {
        const Topic& topic = project.outline().at(position);
        if (topic.contextId.empty() != topic.contextNumber.empty()) {
            addContextHeader(report, headers);
            appendLine(report, "INCOMPLETE CONTEXT in '", topic.title,
                       "', Both Context Values Cleared");
            project.setField(position, &Topic::contextId, {});
            project.setField(position, &Topic::contextNumber, {});
        } else if (readsAsPositiveNumber(topic.contextId)) {
            addContextHeader(report, headers);
            appendLine(report, "ERROR in '", topic.title,
                       "', Context ID Cannot be a Number, Changed");
            project.setField(position, &Topic::contextId, "IDH_" + topic.contextId);
        }
    }
}

void renameDuplicateFiles(Project& project, Text& report, ReportHeaders& headers) {
    std::vector<Text> keys;
    for (const Topic& topic : project.outline()) {
        keys.push_back(model::pageKey(topic.fileName));
    }
    std::vector<TextView> names(keys.begin(), keys.end());
    std::erase(names, TextView());
    if (!haveEqual(std::move(names))) {
        return;
    }
    // Comes to an end: each renaming makes a name longer or its number larger.
    while (renameRound(project, keys, report, headers)) {
    }
}

void reportDuplicateContexts(const model::TopicOutline& outline, Text& report,
                             ReportHeaders& headers) {
    struct Context {
        const Topic* topic;
        Text key;
    };
    std::vector<Context> contexts;
    for (const Topic& topic : outline) {
        if (!topic.contextId.empty()) {
            contexts.push_back({&topic, text::lowerCase(topic.contextId)});
        }
    }
    std::vector<TextView> ids;
    std::vector<TextView> numbers;
    for (const Context& context : contexts) {
        ids.push_back(context.key);
        numbers.push_back(context.topic->contextNumber);
    }
    if (!haveEqual(std::move(ids)) && !haveEqual(std::move(numbers))) {
        return;
    }
    const auto message = [&](const char* kind, const Text& value, const Context& a,
                             const Context& b) {
        if (!headers.duplicates) {
            report += lineBreak;
            headers.duplicates = true;
        }
        appendLine(report, kind, value, ") in Topics '", a.topic->title, "' and '", b.topic->title,
                   "'");
    };
    for (auto a = contexts.begin(); a != contexts.end(); ++a) {
        for (auto b = a + 1; b != contexts.end(); ++b) {
            if (a->key == b->key) {
                message("ERROR: Dup Context ID(", a->topic->contextId, *a, *b);
            }
            if (a->topic->contextNumber == b->topic->contextNumber) {
                message("ERROR: Dup Context # (", a->topic->contextNumber, *a, *b);
            }
        }
    }
}

} // namespace generate
