#pragma once

#include <unordered_map>
#include <unordered_set>

#include "import/ForeignPage.h"
#include "import/HelpFiles.h"
#include "import/HelpPlan.h"
#include "model/Topic.h"

namespace importer {

/// A topic in the making, and what it is made of.
struct ImportedTopic {
    const PlannedTopic* planned = nullptr;
    model::Topic topic = {};
};

struct BodyNote {
    std::size_t topic = 0; ///< its index
    text::Text text;
    bool isLoss = true; ///< something that was wanted did not come in
};

/// Makes the bodies of topics from the pages of a help: what stands in them, with links that lead
/// to the new topics and pictures in the project's folder.
class HelpBodies {
public:
    /// Nothing is owned. The topics have their file names already.
    HelpBodies(const HelpSource& source, HelpFiles& files, std::vector<ImportedTopic>& topics);

    void make(bool leavesOutRepeated);

    text::Text take(std::size_t topic) { return std::move(bodies_[topic]); }
    const text::Text& description(std::size_t topic) const { return descriptions_[topic]; }
    const std::vector<text::Text>& keywords(std::size_t topic) const { return keywords_[topic]; }

    /// The index of the topic that has a page, or the part of it where an anchor is.
    std::optional<std::size_t> topicAt(text::TextView page) const;

    // What most pages have, as a project's option, and put into its folder; empty for none.
    text::Text styleSheet();
    text::Text background();

    std::size_t shortened() const { return shortened_; }
    const std::vector<BodyNote>& notes() const { return notes_; }

private:
    void readPages();
    void readPage(std::size_t topic);
    void takeDescriptions(std::size_t topic, const ForeignPage& page);
    void settleDescriptions();
    void cutPage(const std::vector<std::size_t>& parts);
    void takeTitle(std::size_t topic, const ForeignPage& page);
    void leaveOutRepeated();
    void rewrite(std::size_t topic);
    std::optional<text::Text> newAddress(std::size_t topic, const text::Text& address);
    std::optional<text::Text> linkTo(std::size_t topic, std::size_t target,
                                     const text::Text& address) const;
    void noteElsewhere(std::size_t topic, const text::Text& address);
    void note(std::size_t topic, text::Text text, bool isLoss = true);
    text::Text linkBody(std::size_t topic);

    const HelpSource& source_;
    HelpFiles& files_;
    std::vector<ImportedTopic>& topics_;
    std::vector<text::Text> bodies_;
    std::vector<std::vector<text::Text>> keywords_;
    std::vector<text::Text> descriptions_;
    std::unordered_map<std::size_t, text::Text> listed_; ///< what other pages say of topics
    std::vector<bool> isOurs_;
    std::unordered_map<text::Text, std::vector<std::size_t>> ofPage_; ///< topics by the page's key
    std::unordered_map<text::Text, std::size_t> anchors_; ///< topics by "page#anchor" of cut pages
    std::unordered_map<text::Text, std::size_t> styleSheets_; ///< how often, by paths, one a line,
                                                              ///< and a page's own after that
    std::unordered_map<text::Text, text::Text> styledPages_;  ///< one that has them
    std::unordered_map<text::Text, std::size_t> backgrounds_;
    std::unordered_set<text::Text> noted_;
    std::uint64_t bytesRead_ = 0;
    std::size_t shortened_ = 0;
    std::vector<BodyNote> notes_;
};

} // namespace importer
