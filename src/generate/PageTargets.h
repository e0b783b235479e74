#pragma once

#include <map>
#include <vector>

#include "model/TopicOutline.h"

/// Where the addresses in the texts of topics lead.
namespace generate {

/// What an address means.
struct AddressTarget {
    enum class Kind {
        none,        ///< it is empty
        elsewhere,   ///< the web, or another protocol
        ownComputer, ///< past the page to a root, a drive or a share
        page,        ///< of a topic
        file         ///< any other
    };
    Kind kind = Kind::none;
    int page = 0;        ///< position of the topic; 0 for the page itself, on all pages
    text::TextView path; ///< of a file, as it stands
    text::TextView rest; ///< "#" or "?" and what follows; empty when the address has none
};

/// Knows the pages of all topics.
class PageTargets {
public:
    static constexpr int allPages = 0; ///< as a position: what stands on every page

    /// The outline must outlive this.
    explicit PageTargets(const model::TopicOutline& outline);

    /// Of a plain address on the page of a topic, which must outlive what is returned. A page whose
    /// name holds "#" counts, too.
    AddressTarget targetOf(int position, const text::Text& address) const;

    /// The next topic with the page of this one, to which addresses lead in its stead; 0 for none.
    int sharerOf(int page) const;

    /// The places at which a file may be that a path on the page of a topic leads to, from the
    /// output folder without detours. They begin with ".." where they lead out of there.
    std::vector<text::Text> filePlaces(int position, text::TextView path) const;

private:
    text::Text fromPage(int position, text::TextView path) const;
    int pageOf(int position, text::TextView path) const;

    const model::TopicOutline& outline_;
    std::map<text::Text, int> pages_; ///< positions by place key; the first of those that share it
    std::map<int, int> sharers_;      ///< the second of those, by the first
};

} // namespace generate
