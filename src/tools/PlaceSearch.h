#pragma once

#include <functional>
#include <span>
#include <vector>

#include "model/Project.h"
#include "tools/Replacement.h"

namespace tools {

/// The texts of a topic in which something can be looked for and replaced.
enum class TopicPart { title, description, keywords, body };
inline constexpr std::size_t topicPartCount = 4;
inline constexpr TopicPart topicParts[topicPartCount] = {TopicPart::title, TopicPart::description,
                                                         TopicPart::keywords, TopicPart::body};

/// "title", "description", "keywords", "body".
const char* nameOf(TopicPart part);

text::Text model::Topic::*fieldOf(TopicPart part);

/// Where is looked.
struct PlaceQuestion {
    bool parts[topicPartCount] = {true, true, true, true};

    /// In bodies, what a reader sees: neither tags nor comments, and a reference ("&eacute;") is
    /// the character for which it stands. No match goes across a tag.
    bool visibleOnly = false;
};

/// A match in a topic.
struct Place {
    int topic = 0; ///< position in the outline
    TopicPart part = TopicPart::title;
    std::size_t start = 0; ///< in the text as it is stored
    std::size_t length = 0;
    std::size_t line = 1;     ///< of the text
    Text excerpt;             ///< what stands around it in its line, with the match
    std::size_t textHash = 0; ///< of the text, by which a change is noticed
};

/// Finds all places in a project, topic by topic, and replaces those that are wanted.
class PlaceSearch {
public:
    enum class Outcome {
        done,
        tooMany,   ///< there are more places than wanted
        tooComplex ///< the expression needs too many steps; what was found until then is kept
    };

    PlaceSearch(TextPattern pattern, PlaceQuestion question)
        : pattern_(std::move(pattern)), question_(question) {}

    /// Appends a topic's places, in the order of their parts, as long as there are fewer than
    /// `most`.
    Outcome search(const model::TopicOutline& outline, int position, std::vector<Place>& places,
                   std::size_t most);

    /// See Replacement::forExpression().
    std::optional<Replacement> replacementFor(TextView text, Text& problem) const {
        return Replacement::forExpression(text, pattern_, problem);
    }

    struct Replaced {
        std::size_t places = 0;
        std::size_t topics = 0;
        std::size_t left = 0; ///< places whose texts have changed since they were found
    };

    /// Replaces places as one step that can be taken back. They must be in the order in which they
    /// were found.
    Replaced replace(model::Project& project, std::span<const Place> places,
                     const Replacement& replacement);

private:
    /// For each match in a text; false ends the search.
    using Visit = std::function<bool(std::size_t start, std::size_t length)>;

    Outcome visit(TextView text, TopicPart part, const Visit& found);
    bool visitPiece(TextView text, TextView piece, const Visit& found);
    bool visitPlain(PatternSearch& search, const Visit& found);
    std::size_t replaceInText(Text& text, std::span<const Place> places,
                              const Replacement& replacement);

    TextPattern pattern_;
    PlaceQuestion question_;
    PatternSearch* match_ = nullptr; ///< while a match is visited
    std::size_t from_ = 0;           ///< pieces that end before that do not matter
    bool isSound_ = false;           ///< the text that is looked through in pieces
    bool failed_ = false;
};

/// A place as a line of a list: "body, line 3: ..." without its title.
Text described(const Place& place);

} // namespace tools
