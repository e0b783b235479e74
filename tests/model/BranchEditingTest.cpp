#include "model/BranchEditing.h"

#include <gtest/gtest.h>

#include "model/OutlineEditing.h"
#include "support/TestFiles.h"

using namespace model;
using test::topic;

namespace {

/// An outline as "1a 2b 2c 1d", each topic's depth before its title; "*" before the current one.
class BranchEditing : public testing::Test {
protected:
    void start(std::initializer_list<const char*> topics, int current) {
        TopicOutline outline;
        for (const text::Text each : topics) {
            outline.append(topic(each[0] - '0', each.substr(1), each.substr(1) + ".htm"));
        }
        project.replace(std::move(outline), {}, "p.tsp");
        project.setCurrentIndex(current);
    }

    std::string outline(bool letters = false) const {
        std::string text;
        for (int i = 1; i <= project.outline().count(); ++i) {
            const Topic& each = project.outline().at(i);
            text += (i > 1 ? " " : "") + std::string(i == project.currentIndex() ? "*" : "")
                    + std::to_string(project.outline().depth(i)) + each.title
                    + (letters ? ":" + each.status : "");
        }
        return text;
    }

    /// What a command makes of it; taking it back must lead to where it was.
    template <typename Command>
    std::string after(const Command& command, bool letters = false) {
        const std::string before = outline(true);
        command();
        const std::string made = outline(letters);
        const bool did = project.history().canUndo();
        if (did) {
            project.undo();
        }
        EXPECT_EQ(outline(true), before);
        EXPECT_FALSE(project.history().canUndo()); // one step
        EXPECT_FALSE(project.dataChanged());
        if (did) {
            project.redo();
            EXPECT_EQ(outline(letters), made);
            project.undo();
        }
        return made;
    }

    Project project;
};

} // namespace

TEST_F(BranchEditing, LevelsChangeTogether) {
    start({"1a", "1\u00E4", "2c", "3d", "1e"}, 2);
    EXPECT_EQ(after([this] { promoteBranch(project); }, true), "1a: *2\u00E4:C 3c:C 4d:C 1e:");
    EXPECT_EQ(after([this] { demoteBranch(project); }), "1a *1\u00E4 2c 3d 1e");
    project.setCurrentIndex(3);
    EXPECT_EQ(after([this] { demoteBranch(project); }), "1a 1\u00E4 *1c 2d 1e");
    EXPECT_EQ(after([this] { promoteBranch(project); }), "1a 1\u00E4 *2c 3d 1e"); // too deep
    start({"1a", "2b", "9c"}, 2);
    EXPECT_FALSE(canPromoteBranch(project));
}

TEST_F(BranchEditing, BranchesMovePastEachOther) {
    start({"1a", "2b", "1c", "2d", "3e", "2f", "1g"}, 3);
    EXPECT_EQ(after([this] { moveBranchUp(project); }, true), "*1c:M 2d:M 3e:M 2f:M 1a: 2b: 1g:");
    EXPECT_EQ(after([this] { moveBranchDown(project); }), "1a 2b 1g *1c 2d 3e 2f");
    project.setCurrentIndex(4);
    EXPECT_EQ(after([this] { moveBranchDown(project); }), "1a 2b 1c 2f *2d 3e 1g");
    EXPECT_EQ(after([this] { moveBranchUp(project); }), "1a 2b *2d 3e 1c 2f 1g"); // past its own
    project.setCurrentIndex(7);
    EXPECT_EQ(after([this] { moveBranchDown(project); }), "1a 2b 1c 2d 3e 2f *1g");
}

TEST_F(BranchEditing, SelectedTopicsMoveAndGo) {
    start({"1a", "1b", "1c", "1d"}, 2);
    Positions positions;
    const auto move = [&](Positions which, int step) {
        positions = std::move(which);
        return after([&] { moveTopics(project, positions, step); });
    };
    EXPECT_EQ(move({2, 3}, -1), "*1b 1c 1a 1d");
    EXPECT_EQ(positions, Positions({1, 2}));
    EXPECT_EQ(move({2, 4}, -1), "*1b 1a 1d 1c");
    EXPECT_EQ(move({2, 3}, 1), "1a 1d *1b 1c");
    EXPECT_EQ(move({1, 2}, -1), "1a *1b 1c 1d");
    EXPECT_EQ(after([this] { deleteTopics(project, "x", {1, 2, 4}); }), "*1c");
}

TEST_F(BranchEditing, SeveralTopicsAreBroughtTogether) {
    start({"1a", "1b", "1c", "1d", "1e"}, 2);
    Positions positions;
    const auto gathered = [&](Positions which, int behind) {
        positions = std::move(which);
        return after([&] { gatherTopics(project, positions, behind); }, true);
    };
    EXPECT_EQ(gathered({2, 5}, 3), "1a: 1c: *1b:M 1e:M 1d:");
    EXPECT_EQ(positions, (Positions{3, 4}));
    EXPECT_EQ(gathered({2, 3}, 5), "1a: 1d: 1e: *1b:M 1c:M");
    EXPECT_EQ(gathered({2, 4, 5}, 0), "*1b:M 1d:M 1e:M 1a: 1c:");
    EXPECT_EQ(positions, (Positions{1, 2, 3}));

    start({"1a", "1b", "1c", "1d"}, 2); // which makes way and has not moved itself
    EXPECT_EQ(gathered({1, 3}, 4), "*1b: 1d: 1a:M 1c:M");
    EXPECT_EQ(after([&] { moveTopics(project, positions, -1); }, true), "1a: 1c:M 1d:M *1b:");

    start({"1a", "1b", "2c", "5d", "1e"}, 2);
    EXPECT_EQ(after(
                  [&] {
                      shiftTopics(project, {1, 2, 3, 5}, 2);
                  },
                  true),
              "1a: *2b:C 3c:C 5d: 3e:C");
    EXPECT_EQ(after([&] { shiftTopics(project, {2, 3, 4}, -1); }, true), "1a: *1b: 1c:C 4d:C 1e:");
}

TEST_F(BranchEditing, ManyTopicsMoveWithNoMoreSwapsThanThereAreTopics) {
    struct Count : ProjectObserver {
        void topicsSwapped(int, int) override { ++swaps; }
        void currentTopicMoved(int) override { ++moves; }
        void topicRemoved(int) override { ADD_FAILURE() << "what is known of it would be lost"; }
        int swaps = 0;
        int moves = 0; // of the current one
    };
    project.replace(test::flatOutline(TopicOutline::maxTopics), {}, "p.tsp");
    Count count;
    project.setObserver(&count);
    Positions positions;
    for (int position = 1; position <= TopicOutline::maxTopics; position += 2) {
        positions.push_back(position);
    }
    gatherTopics(project, positions, TopicOutline::maxTopics);
    EXPECT_LT(std::exchange(count.swaps, 0), TopicOutline::maxTopics);
    moveBranchUp(project);
    moveBranchDown(project);
    EXPECT_LT(std::exchange(count.swaps, 0), 10);
    EXPECT_EQ(std::exchange(count.moves, 0), 3);
    for (const int position : {TopicOutline::maxTopics, 1}) {
        moveTopicTo(project, position);
        EXPECT_LT(std::exchange(count.swaps, 0), TopicOutline::maxTopics);
        EXPECT_EQ(std::exchange(count.moves, 0), 1);
    }
    project.setObserver(nullptr);
}

TEST_F(BranchEditing, CopiesComeBackWithNamesOfTheirOwn) {
    start({"1a", "2b", "1c"}, 1);
    project.setField(2, &Topic::contextId, "IDH_B");
    project.setField(2, &Topic::contextNumber, "7");
    project.replace(project.outline(), {}, "p.tsp");
    const auto branch = copiesOf(project.outline(), branchOf(project.outline(), 1));
    project.setCurrentIndex(2);
    EXPECT_EQ(after([&] { pasteTopics(project, branch); }, true), "1a: 2b: *2a:N 3b:N 1c:");
    ASSERT_TRUE(pasteTopics(project, branch));
    EXPECT_EQ(project.outline().at(4).fileName, "b 1.htm");
    EXPECT_EQ(project.outline().at(4).contextId, "");
    EXPECT_EQ(project.outline().at(2).contextNumber, "7");

    start({"1a", "2b", "3c", "6d", "9e"}, 5);
    EXPECT_EQ(after([&] {
                  pasteTopics(project, copiesOf(project.outline(), {1, 2}));
              }),
              "1a 2b 3c 6d 9e *9a 9b");
    project.setCurrentIndex(1);
    EXPECT_EQ(after([&] {
                  pasteTopics(project, copiesOf(project.outline(), {3, 1}));
              }),
              "1a 2b 3c 6d 9e *1c 1a");

    TopicOutline full;
    for (int i = 0; i < TopicOutline::maxTopics - 1; ++i) {
        full.append(topic(1, "t", "t.htm"));
    }
    project.replace(std::move(full), {}, "p.tsp");
    EXPECT_FALSE(pasteTopics(project, branch));
    EXPECT_EQ(project.outline().count(), TopicOutline::maxTopics - 1);
}
