#include "model/Project.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "text/Path.h"

namespace model {

using text::displayText;
using text::Text;
using text::TextView;

ProjectObserver& Project::nobody() {
    static ProjectObserver observer;
    return observer;
}

template <typename... Arguments>
void Project::tell(void (ProjectObserver::*what)(Arguments...), Arguments... arguments) {
    beginChange();
    telling_ = true;
    (observer_->*what)(arguments...);
    telling_ = false;
}

/// All that changes the project begins here.
void Project::beginChange() const {
    assert(!telling_ && "an observer changes what it is told about");
}

void Project::setObserver(ProjectObserver* observer) {
    observer_ = observer != nullptr ? observer : &nobody();
}

Text Project::projectFileTitle() const {
    return displayText(projectPath_.filename());
}

void Project::replace(TopicOutline outline, ProjectOptions options, std::filesystem::path path) {
    tell(&ProjectObserver::projectReplacing);
    outline_ = std::move(outline);
    options_ = std::move(options);
    projectPath_ = std::move(path);
    origin_ = {};
    currentIndex_ = outline_.empty() ? -1 : 1;
    history_.clear();
    markSaved();
    tell(&ProjectObserver::projectReplaced);
}

void Project::setProjectPath(std::filesystem::path path) {
    beginChange();
    if (path != projectPath_) {
        projectPath_ = std::move(path);
        origin_ = {};
    }
}

void Project::setField(int position, Text Topic::*field, Text value) {
    beginChange();
    std::swap(outline_.at(position).*field, value);
    history_.record(FieldChange{position, field, std::move(value)});
    tell(&ProjectObserver::topicChanged, position);
}

void Project::setCurrentIndex(int position) {
    beginChange();
    if (currentIndex_ != position) {
        currentIndex_ = position;
        tell(&ProjectObserver::currentIndexChanged, position);
    }
}

void Project::setOptions(ProjectOptions options) {
    beginChange();
    history_.record(OptionsChange{std::exchange(options_, std::move(options))});
}

void Project::insertTopic(int position, Topic topic) {
    beginChange();
    history_.record(TopicChange{position, {}});
    insertAt(position, std::move(topic));
}

void Project::removeTopic(int position) {
    beginChange();
    history_.record(TopicChange{position, removeAt(position)});
}

void Project::insertAt(int position, Topic topic) {
    tell(&ProjectObserver::topicInserting, position);
    outline_.insert(position, std::move(topic));
    const bool moved = currentIndex_ >= position;
    currentIndex_ += moved ? 1 : 0;
    tell(&ProjectObserver::topicInserted, position);
    if (moved) {
        tell(&ProjectObserver::currentTopicMoved, currentIndex_);
    }
}

Topic Project::removeAt(int position) {
    tell(&ProjectObserver::topicRemoving, position);
    Topic topic = outline_.remove(position);
    const bool wasCurrent = currentIndex_ == position;
    const bool moved = currentIndex_ > position;
    if (outline_.empty()) {
        currentIndex_ = -1;
    } else if (moved || currentIndex_ > outline_.count()) {
        --currentIndex_;
    }
    tell(&ProjectObserver::topicRemoved, position);
    if (wasCurrent) {
        tell(&ProjectObserver::currentIndexChanged, currentIndex_);
    } else if (moved) {
        tell(&ProjectObserver::currentTopicMoved, currentIndex_);
    }
    return topic;
}

void Project::swapTopics(int a, int b) {
    markChanged(statusMoved);
    exchangeTopics(a, b);
}

void Project::exchangeTopics(int a, int b) {
    ProjectChange change = SwapChange{a, b};
    apply(change);
    history_.record(std::move(change));
}

void Project::apply(ProjectChange& change) {
    if (auto* field = std::get_if<FieldChange>(&change)) {
        std::swap(outline_.at(field->position).*field->field, field->value);
        tell(&ProjectObserver::topicChanged, field->position);
    } else if (auto* topic = std::get_if<TopicChange>(&change)) {
        if (topic->absent) {
            insertAt(topic->position, *std::exchange(topic->absent, std::nullopt));
        } else {
            topic->absent = removeAt(topic->position);
        }
    } else if (auto* swap = std::get_if<SwapChange>(&change)) {
        outline_.swap(swap->a, swap->b);
        const bool moved = currentIndex_ == swap->a || currentIndex_ == swap->b;
        currentIndex_ = moved ? swap->a + swap->b - currentIndex_ : currentIndex_;
        tell(&ProjectObserver::topicsSwapped, swap->a, swap->b);
        tell(&ProjectObserver::topicChanged, swap->a);
        tell(&ProjectObserver::topicChanged, swap->b);
        if (moved) {
            tell(&ProjectObserver::currentTopicMoved, currentIndex_);
        }
    } else if (auto* options = std::get_if<OptionsChange>(&change)) {
        std::swap(options_, options->value);
    }
}

void Project::undo() {
    beginChange();
    if (history_.canUndo()) {
        UndoRecord& record = history_.stepBack();
        std::for_each(record.changes.rbegin(), record.changes.rend(),
                      [this](ProjectChange& change) { apply(change); });
        finishStep(record.currentBefore);
    }
}

void Project::redo() {
    beginChange();
    if (history_.canRedo()) {
        UndoRecord& record = history_.stepForward();
        std::for_each(record.changes.begin(), record.changes.end(),
                      [this](ProjectChange& change) { apply(change); });
        finishStep(record.currentAfter);
    }
}

void Project::finishStep(int currentIndex) {
    setCurrentIndex(currentIndex);
    setDataChanged(!history_.atSaved());
}

void Project::markChanged(int code) {
    beginChange();
    history_.markChanged();
    setDataChanged(true);
    if (currentIndex_ >= 1 && code >= statusChanged && code <= statusMoved) {
        markTopicChanged(currentIndex_, static_cast<StatusCode>(code));
    }
}

void Project::markTopicChanged(int position, StatusCode code) {
    constexpr TextView letters = "CNESM";
    const Text& status = outline_.at(position).status;
    if (status.empty() || status == "E") {
        setField(position, &Topic::status, Text(1, letters[static_cast<std::size_t>(code)]));
    }
}

void Project::markSaved() {
    beginChange();
    history_.markSaved();
    setDataChanged(false);
}

void Project::setDataChanged(bool changed) {
    if (dataChanged_ != changed) {
        dataChanged_ = changed;
        tell(&ProjectObserver::dataChangedToggled, changed);
    }
}

} // namespace model
