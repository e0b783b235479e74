#include "import/HelpPlan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "import/ForeignPage.h"
#include "import/ImportOutcome.h"
#include "text/Path.h"

namespace importer {

using text::Text;
using text::TextView;

namespace {

/// Titles of so many pages are read which no contents name.
constexpr std::size_t mostReadTitles = 2000;

class Planner {
public:
    Planner(const HelpSource& source, bool cutsPages)
        : source_(source), cutsPages_(cutsPages),
          contents_(cutsPages && !source.parts.empty() ? source.parts : source.contents) {}

    HelpPlan plan() {
        chooseKinds();
        keepParents();
        addHome();
        addContents();
        addOthers();
        note(repeated_, "entry of the contents leads", "entries of the contents lead",
             " to pages that are topics already");
        note(missing_, "entry of the contents leads", "entries of the contents lead",
             " to pages that are not there");
        note(books_, "book without a page became a topic", "books without a page became topics",
             " with their titles");
        return std::move(plan_);
    }

private:
    enum class Kind { topic, repeated };

    void note(std::size_t count, TextView one, TextView many, TextView rest) {
        if (count > 0) {
            Text text = std::to_string(count);
            text::append(text, " ", count == 1 ? one : many, rest);
            plan_.notes.push_back(std::move(text));
        }
    }

    /// Each page is the topic of the first entry that leads to it.
    void chooseKinds() {
        std::unordered_set<Text> parts;
        for (const SourceEntry& entry : contents_) {
            pages_.push_back(entry.page.empty() || leadsElsewhere(entry.page)
                                 ? std::nullopt
                                 : source_.find(withoutAnchor(entry.page)));
            const auto& page = pages_.back();
            const bool isFirst = !page || used_.insert(pathKey(*page)).second;
            const bool isPart =
                page && cutsPages_ && !anchorOf(entry.page).empty()
                && parts.insert(pathKey(*page) + '#' + Text(anchorOf(entry.page))).second;
            kinds_.push_back(isFirst || isPart ? Kind::topic : Kind::repeated);
        }
    }

    /// An entry with topics below it stays one, unless its page is that of an entry above it.
    void keepParents() {
        std::vector<std::size_t> above;
        std::vector<bool> hasTopics(kinds_.size());
        for (std::size_t i = 0; i < kinds_.size(); ++i) {
            climbTo(above, i);
            for (std::size_t n = above.size(); kinds_[i] == Kind::topic && n-- > 0;) {
                if (hasTopics[above[n]]) {
                    break;
                }
                hasTopics[above[n]] = true;
            }
            above.push_back(i);
        }
        above.clear();
        for (std::size_t i = 0; i < kinds_.size(); ++i) {
            climbTo(above, i);
            const bool isInside = std::any_of(above.begin(), above.end(), [&](std::size_t each) {
                return pages_[each] == pages_[i];
            });
            isLink_.push_back(kinds_[i] == Kind::repeated && hasTopics[i] && !isInside);
            above.push_back(i);
        }
    }

    /// Leaves those that an entry lies in.
    void climbTo(std::vector<std::size_t>& above, std::size_t entry) const {
        while (!above.empty() && contents_[above.back()].depth >= contents_[entry].depth) {
            above.pop_back();
        }
    }

    /// The help begins with its default page also where no contents name that.
    void addHome() {
        const auto home =
            source_.homePage.empty() ? std::nullopt : source_.find(withoutAnchor(source_.homePage));
        if (home && text::isPageName(*home) && used_.insert(pathKey(*home)).second) {
            add({1, titleOf(*home), *home, {}, {}, source_.sizeOf(*home)});
        }
    }

    void addContents() {
        std::vector<std::size_t> above;
        std::vector<int> depths(kinds_.size());
        for (std::size_t i = 0; i < kinds_.size(); ++i) {
            climbTo(above, i);
            const SourceEntry& entry = contents_[i];
            const int depth = above.empty() ? 0 : depths[above.back()];
            const bool isTopic = kinds_[i] == Kind::topic || isLink_[i];
            depths[i] = depth + (isTopic ? 1 : 0);
            repeated_ += isTopic ? 0U : 1U;
            if (isTopic) {
                add(topicOf(entry, pages_[i], isLink_[i], depths[i]));
            }
            above.push_back(i);
        }
    }

    PlannedTopic topicOf(const SourceEntry& entry, const std::optional<Text>& page, bool isLink,
                         int depth) {
        PlannedTopic topic{depth, entry.title, {}, {}, {}, 0, entry.image};
        if (page && !isLink) {
            topic.page = *page;
            topic.anchor = cutsPages_ ? Text(anchorOf(entry.page)) : Text();
            topic.size = source_.sizeOf(*page);
        } else if (!entry.page.empty()) {
            topic.link = entry.page;
            missing_ += page || leadsElsewhere(entry.page) ? 0U : 1U;
        } else {
            ++books_;
        }
        return topic;
    }

    void addOthers() {
        const int depth = contents_.empty() ? 1 : 2;
        bool isFirst = depth > 1;
        for (const Text& page : source_.pages) {
            if (!used_.insert(pathKey(page)).second) {
                continue;
            }
            if (isFirst) {
                add({1, "Other Pages", {}, {}, {}, 0});
                isFirst = false;
            }
            add({depth, titleOf(page), page, {}, {}, source_.sizeOf(page)});
        }
    }

    Text titleOf(const Text& page) {
        const auto html = ++titlesRead_ <= mostReadTitles ? source_.readText(page) : std::nullopt;
        Text title = html ? titleOfPage(*html) : Text();
        return title.empty() ? page.substr(page.rfind('/') + 1) : title;
    }

    void add(PlannedTopic topic) { plan_.topics.push_back(std::move(topic)); }

    const HelpSource& source_;
    bool cutsPages_;
    const std::vector<SourceEntry>& contents_;
    HelpPlan plan_;
    std::unordered_set<Text> used_; ///< keys of pages that are topics
    // For each entry of the contents:
    std::vector<std::optional<Text>> pages_;
    std::vector<Kind> kinds_;
    std::vector<bool> isLink_;

    std::size_t titlesRead_ = 0;
    std::size_t repeated_ = 0;
    std::size_t missing_ = 0;
    std::size_t books_ = 0;
};

/// Time grows with the product of the lengths at worst.
bool matches(TextView text, TextView pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = TextView::npos;
    std::size_t mark = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] != '*'
            && (pattern[in] == '?' || pattern[in] == text[at])) {
            ++at;
            ++in;
        } else if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            mark = at;
        } else if (star != TextView::npos) {
            in = star + 1;
            at = ++mark;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == TextView::npos;
}

} // namespace

HelpPlan planImport(const HelpSource& source, bool cutsPages) {
    return Planner(source, cutsPages).plan();
}

void wantOnly(HelpPlan& plan, TextView pattern) {
    Text key = pathKey(pattern);
    std::replace(key.begin(), key.end(), '\\', '/');
    int wantedDepth = 0; // books above this are wanted, up to here
    for (std::size_t i = plan.topics.size(); i-- > 0;) {
        PlannedTopic& topic = plan.topics[i];
        const bool hasWanted = topic.depth < wantedDepth;
        topic.isWanted = topic.page.empty() ? hasWanted : matches(pathKey(topic.page), key);
        if (topic.isWanted || hasWanted) {
            wantedDepth = topic.depth; // what lies above it is above what is wanted, too
        }
    }
}

std::size_t wantedCount(const HelpPlan& plan) {
    return static_cast<std::size_t>(
        std::count_if(plan.topics.begin(), plan.topics.end(),
                      [](const PlannedTopic& topic) { return topic.isWanted; }));
}

} // namespace importer
