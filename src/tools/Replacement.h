#pragma once

#include <optional>
#include <vector>

#include "tools/TextPattern.h"

namespace tools {

/// What takes the place of each match.
class Replacement {
public:
    /// Always these characters.
    explicit Replacement(TextView text) : pieces_{{Text(text), {}}} {}

    /// With parts of the match: "$0" is all of it, "$1" or "${1}" the first group, "${name}" one
    /// with a name, "$$" a dollar sign; "\n" is a line break, "\t" a tab, "\\" a backslash.
    /// Nothing, and `problem` says why, when it names a group that the pattern does not have.
    static std::optional<Replacement> forExpression(TextView text, const TextPattern& pattern,
                                                    Text& problem);

    /// For the match that a search has just found.
    Text madeFor(const PatternSearch& match) const;

private:
    struct Piece {
        Text text;
        std::optional<unsigned> group;
    };
    Replacement() = default;

    std::vector<Piece> pieces_;
};

} // namespace tools
