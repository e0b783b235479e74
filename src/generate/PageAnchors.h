#pragma once

#include <array>
#include <map>

#include "text/HtmlReader.h"

/// The places on pages that addresses name behind "#". Letter case does not tell them apart, as in
/// the viewers of compiled help.
namespace generate {

/// The places that a tag makes: ids, and the names of "a". Empty for one that makes none.
std::vector<text::Text> anchorsOf(const text::HtmlReader& reader);

/// What places are known by.
text::Text anchorKey(text::TextView name);

/// What may be meant by the rest of an address, the likelier first; both empty when it names no
/// place.
std::array<text::Text, 2> anchorKeysIn(text::TextView rest);

/// The places of a page with the names that they have there.
class PageAnchors {
public:
    void add(text::TextView html);

    /// The name of the place that the rest of an address leads to, for readers that tell letter
    /// case apart; empty when there is none, or when the address has that name already.
    text::Text otherNameFor(text::TextView rest) const;

private:
    std::map<text::Text, std::vector<text::Text>> names_; ///< by key
};

} // namespace generate
