#pragma once

#include <filesystem>
#include <optional>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"
#include "model/UndoHistory.h"
#include "platform/FileState.h"

namespace model {

/// Learns of every change of a project's outline, current topic and changed flag, so that a command
/// never tells a window what to show. Options and path change silently. An observer must not change
/// the project while it is told; a debug build stops where one does.
class ProjectObserver {
public:
    virtual ~ProjectObserver() = default;

    virtual void topicChanged(int /*position*/) {}
    // A topic that comes or goes is told of before and after.
    virtual void topicInserting(int /*position*/) {}
    virtual void topicInserted(int /*position*/) {}
    virtual void topicRemoving(int /*position*/) {}
    virtual void topicRemoved(int /*position*/) {}
    // Every row may be another one after this; the options too.
    virtual void projectReplacing() {}
    virtual void projectReplaced() {}
    /// Two topics have changed places; their rows and the current topic are told about after this.
    virtual void topicsSwapped(int /*a*/, int /*b*/) {}
    /// Another topic is current now, or none (-1). The number may be the same.
    virtual void currentIndexChanged(int /*position*/) {}
    /// The current topic has another position.
    virtual void currentTopicMoved(int /*position*/) {}
    virtual void dataChangedToggled(bool /*dataChanged*/) {}
};

/// What Project::markChanged() takes. The first five stand for a status letter.
enum StatusCode {
    statusChanged = 0,      ///< C: a field was edited
    statusNew = 1,          ///< N: added
    statusEmpty = 2,        ///< E: has no body
    statusSynchronised = 3, ///< S: the body was taken back from its page
    statusMoved = 4,        ///< M: moved up or down
    projectChanged = 99     ///< no letter; only the project counts as changed
};

/// What is known of the file that a project belongs to.
struct ProjectOrigin {
    platform::FileState file;      ///< as it was read or written last
    std::optional<int> topicsRead; ///< set when the file holds more than could be read
};

/// The open project: its outline and options, the file it belongs to, and what has become of it
/// since it was loaded or saved. Commands change it through the operations here, which tell the
/// observer.
class Project {
public:
    static constexpr const char* newFileName = "New.tsp";

    Project() = default;
    Project(Project&&) = default;
    Project& operator=(Project&&) = default;

    const TopicOutline& outline() const { return outline_; }
    const ProjectOptions& options() const { return options_; }

    /// "New.tsp" as long as the project has no file.
    const std::filesystem::path& projectPath() const { return projectPath_; }
    void setProjectPath(std::filesystem::path path);
    bool hasFile() const { return projectPath_ != newFileName; }

    /// Not known (see FileState) until it is set, and when the path becomes another one. Saving
    /// looks at it.
    ProjectOrigin& origin() { return origin_; }
    const ProjectOrigin& origin() const { return origin_; }

    /// The path's last component.
    text::Text projectFileTitle() const;

    /// True while the project differs from its file, as far as is known: undoing back to the last
    /// save or load makes it false again.
    bool dataChanged() const { return dataChanged_; }

    /// The position of the topic that the author works on; -1 for none. It stays with its topic
    /// when others come and go above it, or when it changes places with another.
    int currentIndex() const { return currentIndex_; }
    bool hasCurrent() const { return currentIndex_ > 0; }
    void setCurrentIndex(int position);

    /// Puts other contents in place of all there is. The first topic becomes current, and the
    /// project counts as unchanged.
    void replace(TopicOutline outline, ProjectOptions options, std::filesystem::path path);

    /// An empty project without a file.
    void reset() { replace({}, {}, newFileName); }

    // The following leave the status letters and the changed flag alone: the rule for them is for
    // the command to apply, see markChanged().
    void setField(int position, text::Text Topic::*field, text::Text value);
    void setOptions(ProjectOptions options);
    void insertTopic(int position, Topic topic);

    /// When the topic was the current one, that at its position becomes current, or else the last.
    void removeTopic(int position);

    /// Exchanges two topics as wholes. The current topic is marked as moved first, so that the
    /// letter travels with it.
    void swapTopics(int a, int b);

    /// The same, and no topic is marked: for commands that move others than the current one.
    void exchangeTopics(int a, int b);

    /// The project counts as changed, and the current topic, if there is one, gets the letter of
    /// the code (see StatusCode) unless it has been changed since the last generation already.
    void markChanged(int code);

    /// The letter alone, and for any topic, by the same rule.
    void markTopicChanged(int position, StatusCode code);

    /// The project counts as unchanged.
    void markSaved();

    // What was done within an UndoStep can be taken back, and done again, until the project is
    // replaced. The letters, the current topic and the changed flag come back as well.
    const UndoHistory& history() const { return history_; }
    void undo();
    void redo();

    /// Further typing into a field is not taken back together with what was typed before.
    void endTyping() { history_.endTyping(); }

    /// Not owned; null for none.
    void setObserver(ProjectObserver* observer);

private:
    /// Stands in for a missing observer.
    static ProjectObserver& nobody();

    friend class UndoStep;

    /// Every word to the observer goes through here.
    template <typename... Arguments>
    void tell(void (ProjectObserver::*what)(Arguments...), Arguments... arguments);

    void beginChange() const;
    void setDataChanged(bool changed);
    void insertAt(int position, Topic topic);
    Topic removeAt(int position);
    void apply(ProjectChange& change);
    void finishStep(int currentIndex);

    TopicOutline outline_;
    ProjectOptions options_;
    std::filesystem::path projectPath_ = newFileName;
    ProjectOrigin origin_;
    bool dataChanged_ = false;
    int currentIndex_ = -1;
    UndoHistory history_;
    ProjectObserver* observer_ = &nobody();
    bool telling_ = false;
};

/// Marks what happens during its life as one command that can be taken back.
class UndoStep {
public:
    /// `name` is shown to the author. A `typedField` makes further typing into that field of the
    /// current topic part of the same step.
    UndoStep(Project& project, text::TextView name, text::Text Topic::*typedField = nullptr)
        : project_(project) {
        project_.history_.open(name, project_.currentIndex(), typedField);
    }
    ~UndoStep() { project_.history_.close(project_.currentIndex()); }
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    Project& project_;
};

} // namespace model
