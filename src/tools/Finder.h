#pragma once

#include <optional>
#include <vector>

#include "model/TopicOutline.h"

namespace tools {

using text::Text;
using text::TextView;

/// What is looked for.
struct FindQuestion {
    Text text; ///< not empty
    bool matchCase = false;
    bool wholeWords = false; ///< with a blank, or an end of the searched text, on both sides
    bool bodies = false;     ///< in short descriptions and bodies too
};

/// The parts of a topic, in the order in which they are searched.
enum class FindStage { title = 1, shortDescription = 2, body = 3 };

struct FindMatch {
    int topic = 0; ///< position in the outline
    FindStage stage = FindStage::title;
    std::size_t start = 0; ///< in the searched text
    std::size_t length = 0;
};

/// Whoever shows the topics, and lets a body be edited while it is searched.
class FindHost {
public:
    virtual ~FindHost() = default;

    virtual const model::TopicOutline& outline() const = 0;

    /// Where a new search begins.
    virtual int selectedTopic() const = 0;

    /// A short description or body as it stands in an editor, or as one would show it; nothing when
    /// that is as it is stored.
    virtual std::optional<Text> editedText(int /*topic*/, FindStage /*stage*/) const { return {}; }

    /// A body holds nothing more: an editor is to be closed. False when the author wants to stay.
    virtual bool leaveBody() { return true; }

    /// False, too, when the author wants to stay.
    virtual bool showMatch(const FindMatch& /*match*/) { return true; }
};

/// Goes through all topics from one match to the next, beginning at the selected topic and round
/// the end of the outline, until it is back. Topics may be moved meanwhile.
class Finder {
public:
    enum class Outcome {
        found,    ///< there is a match
        searched, ///< all has been searched; the next search is a new one
        stopped   ///< the host wanted to stay where it is; as if nothing had been asked
    };

    /// The next search begins anew.
    void restart() { newSearch_ = true; }

    /// Two topics have changed places. What was searched of them stays searched.
    void topicsSwapped(int a, int b);

    /// The outline must not be empty.
    Outcome next(const FindQuestion& question, FindHost& host);

    /// What next() has found.
    const FindMatch& match() const { return match_; }

    /// Whether the search that has just ended had found something.
    bool foundAny() const { return foundAny_; }

private:
    bool searchTopic(const FindQuestion& question, const FindHost& host);

    /// Goes on to the next topic that is yet to be searched; false when there is none.
    bool leaveTopic();

    bool newSearch_ = true;
    std::vector<bool> searched_; ///< by position less one
    int currentIndex_ = 0;
    FindStage stage_ = FindStage::title;
    std::size_t position_ = 0; ///< where the search in the current text begins
    bool foundAny_ = false;
    FindMatch match_;
};

} // namespace tools
