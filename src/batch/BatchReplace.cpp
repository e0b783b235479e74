#include "batch/BatchReplace.h"

#include <algorithm>

#include "batch/BatchProject.h"
#include "generate/PageRename.h"
#include "model/OutlineEditing.h"
#include "model/PagePath.h"
#include "tools/PlaceSearch.h"

namespace batch {

using model::Project;
using text::Text;

namespace {

constexpr std::size_t mostPlaces = 1'000'000;

/// Where the options say to look; false when they name something else than parts.
bool readParts(const std::string& names, tools::PlaceQuestion& question) {
    std::fill(std::begin(question.parts), std::end(question.parts), false);
    for (std::size_t start = 0; start <= names.size();) {
        const std::size_t end = std::min(names.find(',', start), names.size());
        const auto* part = std::find_if(std::begin(tools::topicParts), std::end(tools::topicParts),
                                        [&](tools::TopicPart each) {
                                            return names.substr(start, end - start) == nameOf(each);
                                        });
        if (part == std::end(tools::topicParts)) {
            return false;
        }
        question.parts[static_cast<std::size_t>(*part)] = true;
        start = end + 1;
    }
    return true;
}

void fail(BatchSession& session, const Project& project, const char* title, const Text& why) {
    session.console.failure(title, project.projectPath(), why);
}

/// Finds the places of a project; false, and said so, when they cannot all be found.
bool findPlaces(BatchSession& session, const Project& project, tools::PlaceSearch& search,
                std::vector<tools::Place>& places) {
    using Outcome = tools::PlaceSearch::Outcome;
    for (int position = 1; position <= project.outline().count(); ++position) {
        const Outcome outcome = search.search(project.outline(), position, places, mostPlaces);
        if (outcome != Outcome::done) {
            fail(session, project, "Replace",
                 outcome == Outcome::tooMany
                     ? "there are more than a million places; nothing is replaced"
                     : "the expression needs too many steps in topic " + std::to_string(position)
                           + "; nothing is replaced");
            return false;
        }
    }
    return true;
}

ExitCode saved(BatchSession& session, const CommandLine& arguments, Project& project) {
    return arguments.has("--dry-run") || saveBack(session, project) ? exitDone : exitFailed;
}

bool load(BatchSession& session, const CommandLine& arguments, Project& project) {
    return arguments.has("--dry-run") ? loadWhole(session, arguments.path(0), project)
                                      : loadForChange(session, arguments.path(0), project);
}

int topicWithPage(const model::TopicOutline& outline, text::TextView name) {
    const auto found =
        std::find_if(outline.begin(), outline.end(), [&name](const model::Topic& topic) {
            return model::pageKey(topic.fileName) == model::pageKey(name);
        });
    return found == outline.end() ? 0 : static_cast<int>(found - outline.begin()) + 1;
}

} // namespace

ExitCode replace(BatchSession& session, const CommandLine& arguments) {
    tools::PlaceQuestion question;
    question.visibleOnly = arguments.has("--visible");
    if (arguments.has("--in") && !readParts(arguments.value("--in"), question)) {
        return usageError(session, "--in expects some of title,description,keywords,body");
    }
    Text problem;
    const bool isExpression = arguments.has("--expression");
    auto pattern = tools::TextPattern::make(
        {arguments[1], isExpression, arguments.has("--match-case"), arguments.has("--whole-words")},
        problem);
    std::optional<tools::Replacement> replacement(arguments[2]);
    if (pattern && isExpression) {
        replacement = tools::Replacement::forExpression(arguments[2], *pattern, problem);
    }
    if (!pattern || !replacement) {
        return usageError(session, "replace: " + problem);
    }
    Project project;
    if (!load(session, arguments, project)) {
        return exitFailed;
    }
    tools::PlaceSearch search(std::move(*pattern), question);
    std::vector<tools::Place> places;
    if (!findPlaces(session, project, search, places)) {
        return exitFailed;
    }
    for (const tools::Place& place : places) {
        session.console.result(std::to_string(place.topic) + '\t' + nameOf(place.part) + '\t'
                               + std::to_string(place.line) + '\t' + place.excerpt);
    }
    if (places.empty()) {
        return exitFailed;
    }
    if (!arguments.has("--dry-run")
        && search.replace(project, places, *replacement).places < places.size()) {
        fail(session, project, "Replace",
             "the expression needs too many steps; nothing is replaced");
        return exitFailed;
    }
    return saved(session, arguments, project);
}

ExitCode rename(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!load(session, arguments, project)) {
        return exitFailed;
    }
    const int position = arguments[1].empty() ? 0 : topicWithPage(project.outline(), arguments[1]);
    if (position == 0) {
        fail(session, project, "Rename", "no topic has the page " + arguments[1]);
        return exitFailed;
    }
    if (const Text fault = generate::renamingFault(project, position, arguments[2]);
        !fault.empty()) {
        fail(session, project, "Rename", arguments[2] + ": " + fault);
        return exitFailed;
    }
    const Text oldName = project.outline().at(position).fileName;
    const auto links = generate::linksToFollow(project.outline(), project.options(),
                                               {position, oldName, arguments[2]});
    constexpr const char* names[] = {"body", "additional code", "copyright text"};
    for (const generate::PageLink& link : links) {
        session.console.result(std::to_string(link.topic) + '\t'
                               + names[static_cast<std::size_t>(link.where)] + '\t'
                               + std::to_string(link.line) + '\t' + text::oneLine(link.address)
                               + '\t' + text::oneLine(link.renamed));
    }
    const model::UndoStep step(project, "Rename Page");
    generate::followRenaming(project, links);
    project.setField(position, &model::Topic::fileName, arguments[2]);
    model::markTopicChanged(project, position);
    return saved(session, arguments, project);
}

} // namespace batch
