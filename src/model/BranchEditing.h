#pragma once

#include <vector>

#include "model/Project.h"

/// The commands that edit several topics at once: the current one with all that lies below it, or
/// those that an author has selected. Each can be taken back as one step, and does nothing where it
/// cannot apply. Positions are given in ascending order.
namespace model {

using Positions = std::vector<int>;

/// The last position of what lies below a topic; its own when nothing does.
int branchEnd(const TopicOutline& outline, int position);

/// A topic and all that lies below it.
Positions branchOf(const TopicOutline& outline, int position);

/// One level deeper: at most one below the topic before, and nothing in it below the deepest level.
bool canPromoteBranch(const Project& project);
void promoteBranch(Project& project);

bool canDemoteBranch(const Project& project);
void demoteBranch(Project& project);

/// Past the branch before it on the same level, or past the topic that it lies below.
bool canMoveBranchUp(const Project& project);
void moveBranchUp(Project& project);

/// Past the branch behind it.
bool canMoveBranchDown(const Project& project);
void moveBranchDown(Project& project);

/// Moves topics by one place, each past the neighbour that is not one of them. False, and nothing
/// done, when one of them stands at that end. Returns to where they went through `positions`.
bool moveTopics(Project& project, Positions& positions, int step);

/// Brings several topics together behind another one, 0 for before all, in their order. Returns to
/// where they went through `positions`.
void gatherTopics(Project& project, Positions& positions, int behind);

/// Makes several topics deeper by so many levels, or less deep, each as far as it can be.
void shiftTopics(Project& project, const Positions& positions, int levels);

/// A project whose last topic is gone counts as unchanged.
void deleteTopics(Project& project, text::TextView name, const Positions& positions);

/// Those of the outline, as they are.
std::vector<Topic> copiesOf(const TopicOutline& outline, const Positions& positions);

/// Puts topics behind the current one and what lies below it, the first on the current one's level;
/// the first becomes current. Page names and context values that a topic of the outline has already
/// are made others, or left out. False, and nothing done, when there is no room for all.
bool pasteTopics(Project& project, std::vector<Topic> topics);

} // namespace model
