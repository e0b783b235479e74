#include "batch/BatchTools.h"

#include <algorithm>

#include "batch/BatchProject.h"
#include "generate/GenerationRun.h"
#include "generate/ProjectCheck.h"
#include "platform/Files.h"
#include "text/Unicode.h"
#include "tools/Finder.h"
#include "tools/Spelling.h"

namespace batch {

using model::Project;

namespace {

constexpr const char* spellTitle = "Spell Check All";

constexpr const char* partNames[] = {"title", "description", "body"};

/// A topic's title in a line of results. A damaged project can have one of megabytes, and many
/// matches in it.
text::Text shortTitle(const model::Topic& topic) {
    constexpr std::size_t most = 200;
    const text::TextView title = topic.title;
    std::size_t end = std::min(most, title.size());
    while (end < title.size() && text::continuesCharacter(title[end])) {
        ++end;
    }
    return text::oneLine(title.substr(0, end)) + (title.size() > end ? "..." : "");
}

/// A search without a window.
class Searched : public tools::FindHost {
public:
    explicit Searched(const model::TopicOutline& outline) : outline_(outline) {}
    const model::TopicOutline& outline() const override { return outline_; }
    int selectedTopic() const override { return 1; }

    /// How many characters are in front of a match. Matches come in their order, so that no part of
    /// a text is counted twice.
    std::size_t charactersBefore(const tools::FindMatch& match) {
        if (match.topic != last_.topic || match.stage != last_.stage) {
            counted_ = 0;
            last_.start = 0;
        }
        const model::Topic& topic = outline_.at(match.topic);
        const text::TextView text = match.stage == tools::FindStage::title ? topic.title
                                    : match.stage == tools::FindStage::body
                                        ? topic.body
                                        : topic.shortDescription;
        counted_ += text::characterCount(text.substr(last_.start, match.start - last_.start));
        last_ = match;
        return counted_;
    }

private:
    const model::TopicOutline& outline_;
    tools::FindMatch last_;
    std::size_t counted_ = 0;
};

} // namespace

ExitCode find(BatchSession& session, const CommandLine& arguments) {
    if (arguments[1].empty()) {
        return usageError(session, "find expects a text");
    }
    Project project;
    if (!loadWhole(session, arguments.path(0), project)) {
        return exitFailed;
    }
    const tools::FindQuestion question{arguments[1], arguments.has("--match-case"),
                                       arguments.has("--whole-words"), arguments.has("--bodies")};
    if (project.outline().empty()) {
        session.console.message({"Nothing to Search", "Find"});
        return exitFailed;
    }
    Searched host(project.outline());
    tools::Finder finder;
    while (finder.next(question, host) == tools::Finder::Outcome::found) {
        const tools::FindMatch& match = finder.match();
        session.console.result(std::to_string(match.topic) + '\t'
                               + partNames[static_cast<std::size_t>(match.stage) - 1] + '\t'
                               + std::to_string(host.charactersBefore(match)) + '\t'
                               + shortTitle(project.outline().at(match.topic)));
    }
    return finder.foundAny() ? exitDone : exitFailed;
}

ExitCode check(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!loadWhole(session, arguments.path(0), project)) {
        return exitFailed;
    }
    if (const auto message = generate::nothingToGenerate(project, "Check")) {
        session.console.message(*message);
        return exitFailed;
    }
    const std::filesystem::path folder = arguments.has("--output")
                                             ? platform::fullPath(arguments.pathValue("--output"))
                                             : project.projectPath().parent_path();
    const auto findings = generate::checkProject(project.outline(), project.options(), folder);
    for (const generate::Finding& finding : findings) {
        session.console.result(std::to_string(finding.position) + '\t' + nameOf(finding.kind) + '\t'
                               + finding.text);
    }
    return findings.empty() ? exitDone : exitFailed;
}

ExitCode spell(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!loadWhole(session, arguments.path(0), project)) {
        return exitFailed;
    }
    const auto folders = tools::dictionaryFolders(session.programFolder);
    const std::string& written = project.options().languageTag;
    std::string language = arguments.has("--language") ? arguments.value("--language")
                                                       : tools::languageFor(folders, written);
    if (language.empty()) {
        language = written; // to be named
    }
    const auto dictionary = tools::Dictionary::open(folders, language);
    if (dictionary == nullptr) {
        session.console.failure(spellTitle, platform::pathFromUtf8(language),
                                "no dictionary for this language is installed");
        return exitFailed;
    }
    const tools::PersonalWords personal(arguments.pathValue("--words"));
    bool any = false;
    for (int position = 1; position <= project.outline().count(); ++position) {
        const model::Topic& topic = project.outline().at(position);
        const text::Text* parts[] = {&topic.title, &topic.shortDescription, &topic.body};
        for (std::size_t part = 0; part < std::size(parts); ++part) {
            for (const auto& [word, count] :
                 tools::unknownWords(*parts[part], *dictionary, personal)) {
                session.console.out()
                    << position << '\t' << partNames[part] << '\t' << count << '\t' << word << '\n';
                any = true;
            }
        }
    }
    return any ? exitFailed : exitDone;
}

} // namespace batch
