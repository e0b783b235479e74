#include "model/UndoHistory.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace model {

using text::Text;
using text::TextView;

namespace {

/// While typing goes on, the text before its first letter is all that is needed.
bool knowsOlderText(const UndoRecord& record, const ProjectChange& change) {
    const auto* field = std::get_if<FieldChange>(&change);
    return field != nullptr
           && std::any_of(record.changes.begin(), record.changes.end(),
                          [field](const ProjectChange& older) {
                              const auto* other = std::get_if<FieldChange>(&older);
                              return other != nullptr && other->position == field->position
                                     && other->field == field->field;
                          });
}

std::size_t bytesOf(const ProjectChange& change) {
    if (const auto* field = std::get_if<FieldChange>(&change)) {
        return field->value.size();
    }
    const auto* topic = std::get_if<TopicChange>(&change);
    if (topic == nullptr || !topic->absent) {
        return 0;
    }
    const Topic& absent = *topic->absent; // its other texts are names and the like
    return absent.title.size() + absent.shortDescription.size() + absent.keywords.size()
           + absent.body.size();
}

} // namespace

bool UndoRecord::isOnlyAbout(std::initializer_list<Text Topic::*> fields) const {
    return currentBefore == currentAfter
           && std::all_of(changes.begin(), changes.end(), [&](const ProjectChange& change) {
                  const auto* edit = std::get_if<FieldChange>(&change);
                  return edit != nullptr && edit->position == currentAfter
                         && std::find(fields.begin(), fields.end(), edit->field) != fields.end();
              });
}

void UndoHistory::record(ProjectChange change) {
    if (depth_ == 0) {
        clear();
        return;
    }
    undone_.clear();
    if (savedAt_ && *savedAt_ > done_.size()) {
        savedAt_.reset(); // the state that was saved is changed or out of reach now
    }
    if (open_.typedField == nullptr || !knowsOlderText(open_, change)) {
        open_.changes.push_back(std::move(change));
    }
}

void UndoHistory::open(TextView name, int currentIndex, Text Topic::*typedField) {
    if (depth_++ > 0) {
        return;
    }
    const bool joins = typedField != nullptr && !done_.empty() && undone_.empty() && !atSaved()
                       && done_.back().typedField == typedField
                       && done_.back().currentAfter == currentIndex;
    if (joins) {
        open_ = std::move(done_.back());
        done_.pop_back();
    } else {
        open_ = {Text(name), {}, currentIndex, currentIndex, typedField};
    }
}

void UndoHistory::close(int currentIndex) {
    if (--depth_ > 0) {
        return;
    }
    const bool marked = std::exchange(markedInRecord_, false);
    if (open_.changes.empty()) {
        if (marked) {
            savedAt_.reset();
        }
        return;
    }
    open_.currentAfter = currentIndex;
    open_.bytes = std::accumulate(open_.changes.begin(), open_.changes.end(), std::size_t{0},
                                  [](std::size_t sum, const ProjectChange& change) {
                                      return sum + sizeof change + bytesOf(change);
                                  });
    done_.push_back(std::move(open_));
    open_ = {};
    forgetOldest();
}

void UndoHistory::forgetOldest() {
    std::size_t bytes = std::accumulate(
        done_.begin(), done_.end(), std::size_t{0},
        [](std::size_t sum, const UndoRecord& record) { return sum + record.bytes; });
    while (done_.size() > 1 && (done_.size() > maxRecords || bytes > maxBytes_)) {
        bytes -= done_.front().bytes;
        done_.pop_front();
        if (savedAt_) {
            savedAt_ = *savedAt_ == 0 ? std::nullopt : std::optional(*savedAt_ - 1);
        }
    }
}

void UndoHistory::endTyping() {
    if (!done_.empty()) {
        done_.back().typedField = nullptr;
    }
}

void UndoHistory::clear() {
    done_.clear();
    undone_.clear();
    open_.changes.clear();
    savedAt_.reset();
}

UndoRecord& UndoHistory::stepBack() {
    endTyping();
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back();
}

UndoRecord& UndoHistory::stepForward() {
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    return done_.back();
}

void UndoHistory::markSaved() {
    const bool open = depth_ > 0 && !open_.changes.empty();
    savedAt_ = done_.size() + (open ? 1 : 0);
    markedInRecord_ = false;
}

void UndoHistory::markChanged() {
    if (depth_ > 0) {
        markedInRecord_ = true;
    } else {
        savedAt_.reset();
    }
}

} // namespace model
