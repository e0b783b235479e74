#include <gtest/gtest.h>
#include <random>

#include "model/BranchEditing.h"
#include "model/OutlineEditing.h"
#include "model/Rereading.h"
#include "support/TestFiles.h"

using namespace model;
using namespace text;

namespace {

/// Writes down what it is told.
class Recorder : public ProjectObserver {
public:
    void topicChanged(int position) override { note("changed", position); }
    void topicInserted(int position) override { note("inserted", position); }
    void topicRemoved(int position) override { note("removed", position); }
    void projectReplaced() override { note("replaced", 0); }
    void currentIndexChanged(int position) override { note("current", position); }
    void currentTopicMoved(int position) override { note("moved", position); }
    void dataChangedToggled(bool changed) override { note("dataChanged", changed ? 1 : 0); }

    std::string take() { return std::exchange(notes_, {}); }

private:
    void note(const char* what, int number) { notes_ += what + std::to_string(number) + ' '; }
    std::string notes_;
};

Project projectOf(std::initializer_list<Topic> topics) {
    Project project;
    project.replace(test::outlineOf(topics), {}, "p.tsp");
    return project;
}

} // namespace

TEST(Project, StatusLettersAreSetOnlyOverRestingOnes) {
    const std::pair<int, const char*> letters[] = {{statusChanged, "C"},
                                                   {statusNew, "N"},
                                                   {statusEmpty, "E"},
                                                   {statusSynchronised, "S"},
                                                   {statusMoved, "M"}};
    for (const auto& [code, letter] : letters) {
        for (const TextView old : {"", "E", "C", "N", "S", "M"}) {
            Topic topic;
            topic.status = old;
            Project project = projectOf({topic});
            project.markChanged(code);
            EXPECT_EQ(project.outline().at(1).status, old.empty() || old == "E" ? letter : old);
            EXPECT_TRUE(project.dataChanged());
        }
    }
    for (const int code : {-1, 5, static_cast<int>(projectChanged)}) {
        Project project = projectOf({Topic()});
        project.markChanged(code);
        EXPECT_EQ(project.outline().at(1).status, "");
        EXPECT_TRUE(project.dataChanged());
    }
    Project empty;
    empty.markChanged(statusChanged); // no topic is current
    EXPECT_TRUE(empty.dataChanged());
}

TEST(Project, SwappedTopicsGoAsWholesAndTheLetterTravels) {
    Project project =
        projectOf({test::topic(1, "A", "a.htm", "body a"), test::topic(2, "B", "b.htm", "body b")});
    project.setCurrentIndex(2);
    project.swapTopics(2, 1);
    EXPECT_EQ(project.outline().at(1).title, "B");
    EXPECT_EQ(project.outline().at(1).level, "..2");
    EXPECT_EQ(project.outline().at(1).body, "body b");
    EXPECT_EQ(project.outline().at(1).status, "M");
    EXPECT_EQ(project.outline().at(2).status, "");
}

TEST(Project, TheObserverLearnsOfEveryChangeOnce) {
    Project project;
    Recorder recorder;
    project.setObserver(&recorder);
    project.replace(test::flatOutline(2), {}, "/folder/p.tsp");
    EXPECT_EQ(recorder.take(), "replaced0 ");
    EXPECT_EQ(project.projectFileTitle(), "p.tsp");
    project.markChanged(statusChanged);
    EXPECT_EQ(recorder.take(), "dataChanged1 changed1 ");
    project.markChanged(statusChanged);
    EXPECT_EQ(recorder.take(), "");
    project.insertTopic(1, Topic()); // the current topic moves down with its place
    project.setCurrentIndex(3);
    EXPECT_EQ(recorder.take(), "inserted1 moved2 current3 ");
    project.removeTopic(3);
    project.removeTopic(1);
    project.removeTopic(1);
    EXPECT_EQ(recorder.take(), "removed3 current2 removed1 moved1 removed1 current-1 ");
    project.markChanged(statusChanged);
    project.markSaved();
    project.markSaved();
    EXPECT_EQ(recorder.take(), "dataChanged0 ");
}

TEST(Project, TheObserverChangesNothingWhileItIsTold) {
    Project project = projectOf({Topic()});
    class Meddler : public ProjectObserver {
    public:
        explicit Meddler(Project& project) : project_(project) {}
        void topicChanged(int /*position*/) override { project_.setOptions({}); }

    private:
        Project& project_;
    } meddler(project);
    project.setObserver(&meddler);
    EXPECT_DEBUG_DEATH(project.setField(1, &Topic::title, "x"), "observer changes");
}

TEST(Project, WhateverWasDoneCanBeTakenBackAndDoneAgain) {
    std::mt19937 random(3);
    const auto pick = [&random](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    for (int round = 0; round < 200; ++round) {
        Project project;
        project.replace(test::flatOutline(pick(0, 4)), {}, "/folder/p.tsp");
        std::vector<TopicOutline> states{project.outline()};
        for (int i = 0; i < 30; ++i) {
            switch (pick(0, 8)) {
            case 0:
            case 1:
                addTopic(project);
                break;
            case 2:
                if (project.outline().count() > 1) { // the last one counts as unchanged by rule
                    deleteTopics(project, "Delete Topic", {project.currentIndex()});
                }
                break;
            case 3:
                promoteTopic(project);
                break;
            case 4:
                demoteTopic(project);
                break;
            case 5:
                moveTopicTo(project, pick(1, 6));
                break;
            case 6:
                editField(project, "Edit", &Topic::body, std::to_string(i));
                break;
            case 7:
                if (!project.outline().empty()) {
                    project.endTyping();
                    project.setCurrentIndex(pick(1, project.outline().count()));
                }
                break;
            default:
                editField(project, "Edit", &Topic::title, std::to_string(i));
                project.endTyping();
                break;
            }
            states.push_back(project.outline());
        }
        while (project.history().canUndo()) {
            project.undo();
            EXPECT_TRUE(std::any_of(states.begin(), states.end(), [&](const TopicOutline& known) {
                return known == project.outline();
            }));
        }
        EXPECT_EQ(project.outline(), states.front());
        EXPECT_FALSE(project.dataChanged());
        while (project.history().canRedo()) {
            project.redo();
        }
        EXPECT_EQ(project.outline(), states.back());
    }
}

TEST(Project, TakingBackKnowsTheSavedState) {
    Project project;
    project.replace(test::flatOutline(2), {}, "/folder/p.tsp");
    editField(project, "Edit", &Topic::title, "x");
    project.markSaved();
    editField(project, "Edit", &Topic::title, "xy"); // not joined across the save
    project.undo();
    EXPECT_EQ(project.outline().at(1).title, "x");
    EXPECT_FALSE(project.dataChanged());
    project.undo();
    EXPECT_TRUE(project.dataChanged());
    project.redo();
    EXPECT_FALSE(project.dataChanged());
    project.markChanged(projectChanged); // the options, say: not to be taken back
    project.undo();
    project.redo();
    EXPECT_TRUE(project.dataChanged());
    project.markSaved();
    project.undo();
    editField(project, "Edit", &Topic::title, "other"); // the saved state is out of reach
    project.undo();
    EXPECT_TRUE(project.dataChanged());
    project.setField(1, &Topic::body, "from elsewhere");
    EXPECT_FALSE(project.history().canUndo());
}

TEST(UndoHistory, ForgetsTheOldestWhenItKeepsTooMuchText) {
    constexpr std::size_t body = 1'000'000;
    UndoHistory history(3 * body);
    const auto record = [&history](const text::Text& name, ProjectChange change) {
        history.open(name, 1, nullptr);
        history.record(std::move(change));
        history.close(1);
    };
    const auto count = [&history] {
        int steps = 0;
        for (; history.canUndo(); ++steps) {
            history.stepBack();
        }
        for (int i = 0; i < steps; ++i) {
            history.stepForward();
        }
        return steps;
    };
    const FieldChange edit{1, &Topic::body, text::Text(body, 'x')};
    Topic topic;
    topic.body = edit.value;
    record("first", edit);
    record("second", edit);
    history.markSaved();
    EXPECT_EQ(count(), 2);
    record("third", TopicChange{1, topic});
    EXPECT_EQ(count(), 2) << "with its texts a record keeps a little more";
    EXPECT_EQ(history.undoName(), "third");
    history.stepBack();
    EXPECT_TRUE(history.atSaved()) << "what was forgotten does not count any more";
    record("many", FieldChange{1, &Topic::body, text::Text(100 * body, 'x')});
    EXPECT_EQ(count(), 1) << "the last one stays, however much it keeps";
    EXPECT_EQ(history.undoName(), "many");
    history.stepBack();
    EXPECT_TRUE(history.atSaved()) << "it was done to what is saved";
    for (std::size_t i = 0; i < 2 * UndoHistory::maxRecords; ++i) {
        record("small", SwapChange{1, 2});
    }
    EXPECT_EQ(count(), static_cast<int>(UndoHistory::maxRecords));
}

TEST(Project, LettersAreReadAgainInAnotherLanguage) {
    Project project;
    ProjectOptions options;
    options.projectName = "\u00CF\u00F0\u0431"; // the last one was typed since
    project.replace(
        test::outlineOf({test::topic(1, "\u00C6\u20AC", "\u00E6.htm", "A \u00C6 &#1046;")}),
        options, "p.tsp");
    rereadIn(project, text::languageOf("ru-RU"));
    const Topic& topic = project.outline().at(1);
    EXPECT_EQ(project.options().projectName, "\u041F\u0440\u0431");
    EXPECT_EQ(topic.title + '|' + topic.fileName + '|' + topic.body,
              "\u0416\u0402|\u0436.htm|A \u0416 &#1046;");
    EXPECT_EQ(project.options().language().id, 0x419U);
    project.undo();
    EXPECT_EQ(project.options(), options);
    EXPECT_EQ(project.outline().at(1).title, "\u00C6\u20AC");
}
