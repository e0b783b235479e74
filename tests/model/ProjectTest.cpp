#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace model;

namespace {

/// Writes down what it is told.
class Recorder : public ProjectObserver {
public:
    void topicChanged(int position) override { note("changed", position); }
    void topicInserted(int position) override { note("inserted", position); }
    void topicRemoved(int position) override { note("removed", position); }
    void projectReplaced() override { note("replaced", 0); }
    void currentIndexChanged(int position) override { note("current", position); }
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
    EXPECT_EQ(recorder.take(), "inserted1 current2 current3 ");
    project.removeTopic(3);
    project.removeTopic(1);
    project.removeTopic(1);
    EXPECT_EQ(recorder.take(), "removed3 current2 removed1 current1 removed1 current-1 ");
    project.markChanged(statusChanged);
    project.markSaved();
    project.markSaved();
    EXPECT_EQ(recorder.take(), "dataChanged0 ");
}
