#pragma once

#include <deque>
#include <initializer_list>
#include <optional>
#include <variant>
#include <vector>

#include "model/ProjectOptions.h"
#include "model/Topic.h"

namespace model {

// What can happen to a project. Each change holds what is needed to apply it the other way round,
// and is its own opposite after that.

/// A field of a topic got another text; `value` is the one that it does not have now.
struct FieldChange {
    int position;
    text::Text Topic::*field;
    text::Text value;
};

/// A topic came or went; `absent` holds it while it is not in the outline.
struct TopicChange {
    int position = 0;
    std::optional<Topic> absent;
};

/// Two topics changed places.
struct SwapChange {
    int a;
    int b;
};

/// The options became others; `value` are those that are not in force now.
struct OptionsChange {
    ProjectOptions value;
};

using ProjectChange = std::variant<FieldChange, TopicChange, SwapChange, OptionsChange>;

/// What one command did, to be taken back as a whole.
struct UndoRecord {
    text::Text name; ///< of the command, as an author knows it
    std::vector<ProjectChange> changes;
    int currentBefore = -1;
    int currentAfter = -1;
    text::Text Topic::*typedField = nullptr; ///< not null while further typing joins this record
    std::size_t bytes = 0;                   ///< of the texts that it keeps, once it is closed

    /// Whether all it did was done to these fields of one topic, the current one before and after.
    bool isOnlyAbout(std::initializer_list<text::Text Topic::*> fields) const;
};

/// The commands that can be taken back, and those that were. Kept by a Project, which also knows
/// how to apply a change. The oldest ones are forgotten when there are too many or when they keep
/// too much text; the last one always stays.
class UndoHistory {
public:
    static constexpr std::size_t maxRecords = 500;
    static constexpr std::size_t usualMaxBytes = std::size_t(256) << 20U;

    explicit UndoHistory(std::size_t maxBytes = usualMaxBytes) : maxBytes_(maxBytes) {}

    /// A change outside of a record cannot be taken back, nor can what was before it.
    void record(ProjectChange change);

    /// Opens a record. While `typedField` is the same and `currentIndex` too, typing joins what was
    /// typed before. Records nest: an inner one is part of the outer.
    void open(text::TextView name, int currentIndex, text::Text Topic::*typedField);

    /// Closes the record; one without changes is dropped.
    void close(int currentIndex);

    /// Further typing starts a record of its own.
    void endTyping();

    void clear();

    /// Whether typing is going on that has not been ended.
    bool isTyping() const { return !done_.empty() && done_.back().typedField != nullptr; }

    bool canUndo() const { return depth_ == 0 && !done_.empty(); }
    bool canRedo() const { return depth_ == 0 && !undone_.empty(); }

    /// Empty when there is nothing.
    text::TextView undoName() const {
        return canUndo() ? text::TextView(done_.back().name) : text::TextView();
    }
    text::TextView redoName() const {
        return canRedo() ? text::TextView(undone_.back().name) : text::TextView();
    }

    /// The next to be taken back or done again; there must be one.
    const UndoRecord& nextUndo() const { return done_.back(); }
    const UndoRecord& nextRedo() const { return undone_.back(); }

    /// Moves the newest record over to the other side and gives it to be applied.
    UndoRecord& stepBack();
    UndoRecord& stepForward();

    /// The project is now as its file.
    void markSaved();
    /// The project is not as its file. Unless the open record will show why, taking records back
    /// does not lead to the saved state any more.
    void markChanged();
    bool atSaved() const { return savedAt_ == done_.size(); }

private:
    void forgetOldest();

    std::size_t maxBytes_;
    std::deque<UndoRecord> done_;
    std::vector<UndoRecord> undone_;
    UndoRecord open_;
    int depth_ = 0;
    bool markedInRecord_ = false;
    std::optional<std::size_t> savedAt_; ///< how many records were done at the last save
};

} // namespace model
