#include "import/Synchroniser.h"

#include "import/EditedPages.h"
#include "import/ImportOutcome.h"
#include "model/PagePath.h"

namespace importer {

using model::Topic;
using text::Text;

namespace {

text::Message conflictMessage(const Text& fileName) {
    return {"File \"" + fileName
                + "\" has a difference content from Stored Body.  Synchronization is not possible",
            "Synch Conflict", text::MessageIcon::exclamation};
}

model::FileFailures untouched(const Synchronisation& result) {
    model::FileFailures pages = result.unreadable;
    pages.insert(pages.end(), result.withoutText.begin(), result.withoutText.end());
    return pages;
}

} // namespace

Synchronisation synchronise(model::Project& project, const std::filesystem::path& pageFolder) {
    Synchronisation result;
    const model::UndoStep step(project, "Synchronize Files");
    for (int position = 1; position <= project.outline().count(); ++position) {
        const Topic& topic = project.outline().at(position);
        GeneratedPage page = readPage(pageFolder, topic, project.options());
        const auto note = [&](model::FileFailures& pages) {
            pages.push_back({model::pagePath(pageFolder, topic.fileName), std::move(page.problem)});
        };
        switch (page.state) {
        case PageState::same:
            break;
        case PageState::edited:
            project.setField(position, &Topic::body, std::move(page.text));
            project.setField(position, &Topic::status, "S");
            project.markChanged(model::projectChanged);
            result.changed.push_back(position);
            break;
        case PageState::conflict:
            result.conflicts.push_back(conflictMessage(topic.fileName));
            break;
        case PageState::unreadable:
            note(result.unreadable);
            break;
        case PageState::missing:
        case PageState::damaged:
            note(result.withoutText);
            break;
        }
    }
    return result;
}

std::optional<text::Message> nothingToSynchronise(const model::Project& project) {
    if (!project.outline().empty()) {
        return {};
    }
    return text::Message{"You need to have at least 1 Help Topic to Synchronize with", {}};
}

Text summary(const Synchronisation& result) {
    Text text = counted(result.changed.size(), "topic") + " taken back, "
                + counted(result.conflicts.size(), "conflict");
    text.front() = text::upperCase(text.substr(0, 1)).front();
    if (!result.withoutText.empty()) {
        text::append(text, ", ", counted(result.withoutText.size(), "page"), " missing or damaged");
    }
    if (!result.unreadable.empty()) {
        text::append(text, ", ", counted(result.unreadable.size(), "page"), " unreadable");
    }
    return text;
}

Text untouchedPages(const Synchronisation& result) {
    return named(untouched(result));
}

Text report(const Synchronisation& result) {
    Text text;
    text::appendLine(text, summary(result));
    text::appendLine(text);
    for (const text::Message& conflict : result.conflicts) {
        text::appendLine(text, conflict.text);
    }
    appendLines(text, untouched(result));
    return text;
}

} // namespace importer
