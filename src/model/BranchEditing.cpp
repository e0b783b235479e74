#include "model/BranchEditing.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <set>
#include <utility>

#include "model/OutlineEditing.h"
#include "model/PagePath.h"

namespace model {

using text::Text;
using text::TextView;

namespace {

Positions currentBranch(const Project& project) {
    return project.hasCurrent() ? branchOf(project.outline(), project.currentIndex()) : Positions();
}

/// The topic past which a branch moves up; it begins another branch or holds this one.
int startBefore(const TopicOutline& outline, int position) {
    int start = position - 1;
    while (start > 1 && outline.depth(start) > outline.depth(position)) {
        --start;
    }
    return start;
}

void shiftLevels(Project& project, TextView name, int by) {
    const UndoStep step(project, name);
    project.markChanged(statusChanged);
    for (const int position : currentBranch(project)) {
        const int depth = project.outline().depth(position) + by;
        project.setField(position, &Topic::level, levelText(depth));
        project.markTopicChanged(position, statusChanged);
    }
}

/// All positions.
Positions orderOf(const TopicOutline& outline) {
    Positions order(static_cast<std::size_t>(outline.count()));
    std::iota(order.begin(), order.end(), 1);
    return order;
}

/// Gives each place the topic whose position `order` has there. Topics are exchanged, each swap
/// bringing one to its place: so the current one stays current, those who watch keep what they know
/// of each, and there are never more swaps than topics. The current one is moved first, and once,
/// as a window has most to do for it.
void rearrange(Project& project, Positions order) {
    const auto from = [&order](int place) -> int& {
        return order[static_cast<std::size_t>(place) - 1];
    };
    const auto fillFrom = [&](int start) {
        int place = start; // holds the topic that was at the start, until that place is its own
        while (from(place) != start) {
            const int next = std::exchange(from(place), place);
            project.exchangeTopics(place, next);
            place = next;
        }
        from(place) = place;
    };
    const auto current = std::find(order.begin(), order.end(), project.currentIndex());
    if (current != order.end()) {
        fillFrom(static_cast<int>(current - order.begin()) + 1);
    }
    for (int start = 1; start <= project.outline().count(); ++start) {
        fillFrom(start);
    }
}

/// Two runs of topics, the first before `middle` and the second from there on, change places.
void exchangeRuns(Project& project, int first, int middle, int end) {
    Positions order = orderOf(project.outline());
    std::rotate(order.begin() + first - 1, order.begin() + middle - 1, order.begin() + end);
    rearrange(project, std::move(order));
}

void markMoved(Project& project, const Positions& positions) {
    for (const int position : positions) {
        project.markTopicChanged(position, statusMoved);
    }
}

/// Values that must not be given twice.
struct Taken {
    explicit Taken(const TopicOutline& outline) {
        for (const Topic& topic : outline) {
            note(topic);
        }
    }

    void note(const Topic& topic) {
        pages.insert(pageKey(topic.fileName));
        ids.insert(text::lowerCase(topic.contextId));
        numbers.insert(topic.contextNumber);
    }

    Text freePage(const Text& fileName) const {
        if (fileName.empty() || !pages.contains(pageKey(fileName))) {
            return fileName;
        }
        const std::size_t dot = std::min(fileName.rfind('.'), fileName.size());
        for (int number = 1;; ++number) {
            Text tried =
                fileName.substr(0, dot) + ' ' + std::to_string(number) + fileName.substr(dot);
            if (!pages.contains(pageKey(tried))) {
                return tried;
            }
        }
    }

    bool hasContext(const Topic& topic) const {
        return (!topic.contextId.empty() && ids.contains(text::lowerCase(topic.contextId)))
               || (!topic.contextNumber.empty() && numbers.contains(topic.contextNumber));
    }

    std::set<Text> pages;
    std::set<Text> ids;
    std::set<Text> numbers;
};

} // namespace

int branchEnd(const TopicOutline& outline, int position) {
    int end = position;
    while (end < outline.count() && outline.depth(end + 1) > outline.depth(position)) {
        ++end;
    }
    return end;
}

Positions branchOf(const TopicOutline& outline, int position) {
    Positions positions(static_cast<std::size_t>(branchEnd(outline, position) - position + 1));
    std::iota(positions.begin(), positions.end(), position);
    return positions;
}

bool canPromoteBranch(const Project& project) {
    const Positions branch = currentBranch(project);
    return canPromote(project) && std::all_of(branch.begin(), branch.end(), [&project](int each) {
               return project.outline().depth(each) < maxDepth;
           });
}

void promoteBranch(Project& project) {
    if (canPromoteBranch(project)) {
        shiftLevels(project, "Promote With Subtopics", 1);
    }
}

bool canDemoteBranch(const Project& project) {
    return canDemote(project);
}

void demoteBranch(Project& project) {
    if (canDemoteBranch(project)) {
        shiftLevels(project, "Demote With Subtopics", -1);
    }
}

bool canMoveBranchUp(const Project& project) {
    return canMoveUp(project);
}

void moveBranchUp(Project& project) {
    if (!canMoveBranchUp(project)) {
        return;
    }
    const UndoStep step(project, "Move Up With Subtopics");
    const int position = project.currentIndex();
    const int start = startBefore(project.outline(), position);
    const int end = branchEnd(project.outline(), position);
    project.markChanged(statusMoved);
    markMoved(project, branchOf(project.outline(), position));
    exchangeRuns(project, start, position, end);
}

bool canMoveBranchDown(const Project& project) {
    return project.hasCurrent()
           && branchEnd(project.outline(), project.currentIndex()) < project.outline().count();
}

void moveBranchDown(Project& project) {
    if (!canMoveBranchDown(project)) {
        return;
    }
    const UndoStep step(project, "Move Down With Subtopics");
    const int position = project.currentIndex();
    const int next = branchEnd(project.outline(), position) + 1;
    const int end = branchEnd(project.outline(), next);
    project.markChanged(statusMoved);
    markMoved(project, branchOf(project.outline(), position));
    exchangeRuns(project, position, next, end);
}

bool moveTopics(Project& project, Positions& positions, int step) {
    const int last = project.outline().count();
    const bool atEnd = positions.empty() || (step < 0 && positions.front() <= 1)
                       || (step > 0 && positions.back() >= last);
    if (atEnd) {
        return false;
    }
    const UndoStep undo(project, step < 0 ? "Move Topics Up" : "Move Topics Down");
    project.markChanged(projectChanged);
    markMoved(project, positions);
    const auto move = [&project, step](int& position) {
        project.exchangeTopics(position, position + step);
        position += step;
    };
    if (step < 0) {
        std::for_each(positions.begin(), positions.end(), move);
    } else {
        std::for_each(positions.rbegin(), positions.rend(), move);
    }
    return true;
}

void gatherTopics(Project& project, Positions& positions, int behind) {
    const UndoStep undo(project, "Move Topics");
    project.markChanged(projectChanged);
    markMoved(project, positions);
    const auto isOne = [&positions](int position) {
        return std::binary_search(positions.begin(), positions.end(), position);
    };
    Positions order = orderOf(project.outline());
    const auto middle = order.begin() + behind;
    const auto first = std::stable_partition(order.begin(), middle, std::not_fn(isOne));
    std::stable_partition(middle, order.end(), isOne);
    std::iota(positions.begin(), positions.end(), static_cast<int>(first - order.begin()) + 1);
    rearrange(project, std::move(order));
}

void shiftTopics(Project& project, const Positions& positions, int levels) {
    const UndoStep undo(project, "Change Level");
    project.markChanged(projectChanged);
    for (const int position : positions) {
        const int depth = project.outline().depth(position);
        const int deepest =
            position == 1 ? 1 : std::min(project.outline().depth(position - 1) + 1, maxDepth);
        const int shifted = std::clamp(depth + levels, 1, std::max(deepest, depth));
        if (shifted != depth) {
            project.setField(position, &Topic::level, levelText(shifted));
            project.markTopicChanged(position, statusChanged);
        }
    }
}

void deleteTopics(Project& project, TextView name, const Positions& positions) {
    if (positions.empty()) {
        return;
    }
    const UndoStep step(project, name);
    project.markChanged(projectChanged);
    std::for_each(positions.rbegin(), positions.rend(),
                  [&project](int position) { project.removeTopic(position); });
    if (project.outline().empty()) {
        project.markSaved();
    }
}

std::vector<Topic> copiesOf(const TopicOutline& outline, const Positions& positions) {
    std::vector<Topic> copies;
    copies.reserve(positions.size());
    for (const int position : positions) {
        copies.push_back(outline.at(position));
    }
    return copies;
}

bool pasteTopics(Project& project, std::vector<Topic> topics) {
    const int room = TopicOutline::maxTopics - project.outline().count();
    if (topics.empty() || static_cast<int>(topics.size()) > room) {
        return false;
    }
    const UndoStep step(project, "Paste Topics");
    const int current = project.currentIndex();
    const int depth = project.hasCurrent() ? project.outline().depth(current) : 1;
    const int by = depth - levelDepth(topics.front().level);
    int position =
        project.hasCurrent() ? branchEnd(project.outline(), current) : project.outline().count();
    const int first = position + 1;
    Taken taken(project.outline());
    for (Topic& topic : topics) {
        topic.level = levelText(std::clamp(levelDepth(topic.level) + by, 1, maxDepth));
        topic.fileName = taken.freePage(topic.fileName);
        if (taken.hasContext(topic)) {
            topic.contextId.clear();
            topic.contextNumber.clear();
        }
        topic.status = "N";
        taken.note(topic);
        project.insertTopic(++position, std::move(topic));
    }
    project.setCurrentIndex(first);
    project.markChanged(projectChanged);
    return true;
}

} // namespace model
