#pragma once

#include "model/Project.h"

/// The commands that edit the outline. Each works on the current topic, can be taken back as one
/// step, and does nothing where it cannot apply.
namespace model {

/// A new topic after the current one, or at the end when none is current. It becomes current.
/// False when the outline is full.
bool addTopic(Project& project);

/// Promoting moves a topic one level deeper, at most one below the topic before it; demoting moves
/// it one level up, whatever follows. Its subtopics stay where they are.
bool canPromote(const Project& project);
void promoteTopic(Project& project);
bool canDemote(const Project& project);
void demoteTopic(Project& project);

bool canMoveUp(const Project& project);
void moveTopicUp(Project& project);
bool canMoveDown(const Project& project);
void moveTopicDown(Project& project);

/// Moves the topic to another position, place by place, past those in between.
void moveTopicTo(Project& project, int position);

/// What the author typed into a field of the current topic.
void editField(Project& project, text::TextView name, text::Text Topic::*field,
               const text::Text& value);

/// A command has edited a topic, the current one or not: it gets its letter unless it has been
/// changed since the last generation already, and the project counts as changed.
void markTopicChanged(Project& project, int position);

/// Gives a topic that has a title but no file name one made from the title; part of the typing of
/// that title.
void completeFileName(Project& project);

} // namespace model
