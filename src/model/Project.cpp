#include "model/Project.h"

#include "model/CodePage.h"

namespace model {

ProjectObserver& Project::nobody() {
    static ProjectObserver observer;
    return observer;
}

void Project::setObserver(ProjectObserver* observer) {
    observer_ = observer != nullptr ? observer : &nobody();
}

Text Project::projectFileTitle() const {
    return displayText(projectPath_.filename());
}

void Project::replace(TopicOutline outline, ProjectOptions options, std::filesystem::path path) {
    outline_ = std::move(outline);
    options_ = std::move(options);
    projectPath_ = std::move(path);
    currentIndex_ = outline_.empty() ? -1 : 1;
    markSaved();
    observer_->projectReplaced();
}

void Project::setField(int position, Text Topic::*field, Text value) {
    outline_.at(position).*field = std::move(value);
    observer_->topicChanged(position);
}

void Project::setCurrentIndex(int position) {
    if (currentIndex_ != position) {
        currentIndex_ = position;
        observer_->currentIndexChanged(position);
    }
}

void Project::insertTopic(int position, Topic topic) {
    outline_.insert(position, std::move(topic));
    observer_->topicInserted(position);
    if (currentIndex_ >= position) {
        setCurrentIndex(currentIndex_ + 1);
    }
}

Topic Project::removeTopic(int position) {
    Topic topic = outline_.remove(position);
    observer_->topicRemoved(position);
    if (outline_.empty()) {
        setCurrentIndex(-1);
    } else if (currentIndex_ > position || currentIndex_ > outline_.count()) {
        setCurrentIndex(currentIndex_ - 1);
    }
    return topic;
}

void Project::swapTopics(int a, int b) {
    markChanged(statusMoved);
    outline_.swap(a, b);
    observer_->topicChanged(a);
    observer_->topicChanged(b);
}

void Project::markChanged(int code) {
    constexpr TextView letters = "CNESM";
    setDataChanged(true);
    if (currentIndex_ < 1 || code < 0 || code >= static_cast<int>(letters.size())) {
        return;
    }
    const Text& status = outline_.at(currentIndex_).status;
    if (status.empty() || status == "E") {
        setField(currentIndex_, &Topic::status, Text(1, letters[static_cast<std::size_t>(code)]));
    }
}

void Project::setDataChanged(bool changed) {
    if (dataChanged_ != changed) {
        dataChanged_ = changed;
        observer_->dataChangedToggled(changed);
    }
}

} // namespace model
