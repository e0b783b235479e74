#include "model/OutlineEditing.h"

#include "model/Helper.h"
#include "model/PagePath.h"

namespace model {

using text::Text;
using text::TextView;

namespace {

int currentDepth(const Project& project) {
    return project.outline().depth(project.currentIndex());
}

void setDepth(Project& project, TextView name, int depth) {
    const UndoStep step(project, name);
    project.setField(project.currentIndex(), &Topic::level, levelText(depth));
    project.markChanged(statusChanged);
}

} // namespace

bool addTopic(Project& project) {
    if (project.outline().full()) {
        return false;
    }
    const UndoStep step(project, "Add New Topic");
    const int position =
        project.hasCurrent() ? project.currentIndex() + 1 : project.outline().count() + 1;
    project.insertTopic(position, {});
    project.setCurrentIndex(position);
    project.markChanged(statusNew);
    return true;
}

bool canPromote(const Project& project) {
    return project.currentIndex() > 1 && currentDepth(project) < maxDepth
           && currentDepth(project) <= project.outline().depth(project.currentIndex() - 1);
}

void promoteTopic(Project& project) {
    if (canPromote(project)) {
        setDepth(project, "Promote Topic", currentDepth(project) + 1);
    }
}

bool canDemote(const Project& project) {
    return project.hasCurrent() && currentDepth(project) > 1;
}

void demoteTopic(Project& project) {
    if (canDemote(project)) {
        setDepth(project, "Demote Topic", currentDepth(project) - 1);
    }
}

bool canMoveUp(const Project& project) {
    return project.currentIndex() > 1;
}

void moveTopicUp(Project& project) {
    if (canMoveUp(project)) {
        const UndoStep step(project, "Move Topic Up");
        moveTopicTo(project, project.currentIndex() - 1);
    }
}

bool canMoveDown(const Project& project) {
    return project.hasCurrent() && project.currentIndex() < project.outline().count();
}

void moveTopicDown(Project& project) {
    if (canMoveDown(project)) {
        const UndoStep step(project, "Move Topic Down");
        moveTopicTo(project, project.currentIndex() + 1);
    }
}

void moveTopicTo(Project& project, int position) {
    const int from = project.currentIndex();
    if (!project.hasCurrent() || position < 1 || position > project.outline().count()
        || position == from) {
        return;
    }
    const UndoStep undo(project, "Move Topic");
    project.swapTopics(from, position); // at once: a window has most to do for the current one
    const int step = from < position ? 1 : -1;
    for (int place = from; place + step != position; place += step) {
        project.swapTopics(place, place + step); // the one that made way goes back beside it
    }
}

void editField(Project& project, TextView name, Text Topic::*field, const Text& value) {
    if (project.hasCurrent()) {
        const UndoStep step(project, name, field);
        project.setField(project.currentIndex(), field, value);
        project.markChanged(statusChanged);
    }
}

void markTopicChanged(Project& project, int position) {
    const Text& status = project.outline().at(position).status;
    if (status.empty() || status == "E") {
        project.setField(position, &Topic::status, "C");
    }
    project.markChanged(projectChanged);
}

void completeFileName(Project& project) {
    if (!project.hasCurrent()) {
        return;
    }
    const Topic& topic = project.outline().at(project.currentIndex());
    if (topic.fileName.empty() && !topic.title.empty()) {
        const UndoStep step(project, "Edit Topic Title", &Topic::title);
        project.setField(project.currentIndex(), &Topic::fileName,
                         pageNameFor(topic.title, project.options().codePage()));
        project.markChanged(statusChanged);
    }
}

} // namespace model
