#include "batch/BatchConvert.h"

#include "batch/BatchProject.h"
#include "import/ForeignPage.h"
#include "import/TopicImport.h"
#include "model/FormatLoss.h"
#include "model/ProjectFormat.h"
#include "platform/Files.h"

namespace batch {

namespace {

using model::ProjectFormat;

/// What is wrong with the options, if anything is.
std::string faultIn(const CommandLine& arguments) {
    if (arguments.has("--format") && arguments.value("--format") != "1"
        && arguments.value("--format") != "2") {
        return "there is no format \"" + arguments.value("--format") + "\"";
    }
    if (!arguments.has("--language")
        || text::findLanguage(arguments.value("--language")) != nullptr) {
        return {};
    }
    std::string fault = "there is no language \"" + arguments.value("--language") + "\"; known are";
    for (const text::Language& language : text::languages()) {
        fault += std::string(" ") + language.tag;
    }
    return fault;
}

/// The project's options as the command wants them, in whatever format. Without a word about it, a
/// project of format 2 stays one.
model::ProjectOptions wantedOptions(const CommandLine& arguments, model::ProjectOptions options) {
    if (arguments.value("--format") == "2" || formatFor(options) == ProjectFormat::two) {
        options.keepsEveryCharacter = true;
    }
    if (arguments.has("--language")) {
        options.languageTag = text::languageOf(arguments.value("--language")).tag;
    }
    return options;
}

model::ProjectOptions withoutFormatTwo(model::ProjectOptions options) {
    const model::ProjectOptions plain;
    options.languageTag = plain.languageTag;
    options.keepsEveryCharacter = plain.keepsEveryCharacter;
    options.otherKeys = plain.otherKeys;
    return options;
}

/// Names what format 1 would take away; true when there is anything.
bool tellLosses(BatchSession& session, const model::TopicOutline& outline,
                const model::ProjectOptions& options) {
    const auto losses = lossesInFormatOne(outline, options);
    for (const model::FormatLoss& loss : losses) {
        text::Text line = std::to_string(loss.topic);
        text::append(line, "\t", loss.part, "\t", text::oneLine(loss.what));
        session.console.result(line);
    }
    return !losses.empty();
}

} // namespace

ExitCode exportTopics(BatchSession& session, const CommandLine& arguments) {
    const std::filesystem::path output = platform::fullPath(arguments.path(1));
    model::Project project;
    if (!loadForCopy(session, arguments.path(0), output, project)) {
        return exitFailed;
    }
    model::TopicOutline topics;
    for (model::Topic topic : project.outline()) {
        topic.body = importer::withoutDoubleQuotes(topic.body);
        topics.append(std::move(topic));
    }
    const bool loses = tellLosses(session, topics, {});
    if (const std::error_code error =
            platform::replaceFile(output, importer::formatTopicFile(topics).value)) {
        session.console.failure("Export Topics", output, error.message());
        return exitFailed;
    }
    return loses ? exitFailed : exitDone;
}

ExitCode convert(BatchSession& session, const CommandLine& arguments) {
    if (const std::string fault = faultIn(arguments); !fault.empty()) {
        return usageError(session, fault);
    }
    const bool isCopy = !platform::isSameFile(arguments.path(0), arguments.path(1));
    model::Project project;
    if (isCopy ? !loadForCopy(session, arguments.path(0), arguments.path(1), project)
               : !loadForChange(session, arguments.path(0), project)) {
        return exitFailed;
    }
    model::ProjectOptions options = wantedOptions(arguments, project.options());
    bool loses = false;
    if (arguments.value("--format") == "1") {
        loses = tellLosses(session, project.outline(), options);
        options = withoutFormatTwo(std::move(options));
    }
    if (loses && !isCopy) {
        session.console.failure("Convert", project.projectPath(),
                                "would lose what is named; it is left as it is");
        return exitFailed;
    }
    project.setOptions(std::move(options));
    return saveBack(session, project) && !loses ? exitDone : exitFailed;
}

} // namespace batch
