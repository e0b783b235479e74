#include "generate/PageNavigation.h"

#include "model/ProjectFolders.h"
#include "text/Labels.h"

namespace generate {

using model::NavigationType;
using model::ProjectOptions;
using model::Topic;
using model::TopicOutline;
using text::append;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

/// `ownWord` is empty where the sentence is wanted.
void appendListStart(Text& page, const Text& name, TextView ownWord) {
    if (ownWord.empty()) {
        appendLine(page, "<p>The following ", name, " features and topics are discussed:</p>");
    } else {
        appendLine(page, "<p>", ownWord, "</p>");
    }
    appendLine(page, "<ul>");
}

/// English has the sentence everywhere.
TextView ownListWord(const ProjectOptions& options, ListIntroduction introduction) {
    const TextView language = options.language().tag;
    return introduction == ListIntroduction::own && !text::hasEnglishLabels(language)
               ? text::labelsOf(language).contents
               : TextView();
}

void appendListItem(Text& page, const Topic& topic) {
    append(page, R"(<li><a href=")", topic.fileName, R"(">)", topic.title, "</a>");
}

void appendListEnd(Text& page) {
    appendLine(page, "</ul>");
    appendLine(page);
}

/// Every chapter but the first topic. Its items stand on one line except behind a description.
void appendOverview(Text& page, const TopicOutline& outline, const Text& projectName,
                    TextView ownWord, ListedTopics& listed) {
    appendListStart(page, projectName, ownWord);
    for (int position = 2; position <= outline.count(); ++position) {
        const Topic& topic = outline.at(position);
        if (topic.level != "1") {
            continue;
        }
        appendListItem(page, topic);
        if (!topic.shortDescription.empty()) {
            appendLine(page, " - ", topic.shortDescription);
        }
        listed.next = listed.next || position == 2;
    }
    appendListEnd(page);
}

/// The topics below this one, as far as they are at the level of the first of them.
void appendChildren(Text& page, const TopicOutline& outline, int parent, TextView ownWord,
                    ListedTopics& listed) {
    const int depth = outline.depth(parent);
    const Text& childLevel = outline.at(parent + 1).level;
    appendListStart(page, outline.at(parent).title, ownWord);
    for (int position = parent + 1; position <= outline.count() && outline.depth(position) > depth;
         ++position) {
        const Topic& topic = outline.at(position);
        if (topic.level != childLevel) {
            continue;
        }
        appendListItem(page, topic);
        appendLine(page);
        if (!topic.shortDescription.empty()) {
            appendLine(page, " - ", topic.shortDescription);
        }
        ++listed.children;
    }
    listed.next = true; // the first child
    appendListEnd(page);
}

/// The navigation of one page, part by part in the order of the page.
class Navigation {
public:
    Navigation(Text& page, const TopicOutline& outline, const ProjectOptions& options, int position)
        : page_(page), outline_(outline), options_(options), position_(position),
          depth_(outline.depth(position)) {}

    void appendHomeButton() {
        if (graphic() && hasPrevious() && isOn(model::linkToFirst)) {
            appendButton(outline_.at(1), model::homePicture, "Return to ");
        }
    }

    void appendPrevious() {
        if (!hasPrevious() || !isOn(model::linkToPrevious)) {
            return;
        }
        const Topic& previous = outline_.at(position_ - 1);
        if (graphic()) {
            appendButton(previous, model::previousPicture, "Go to previous topic - ");
        } else {
            appendLink("next-topic", "The previous topic was ", previous);
        }
    }

    void appendNext(bool nextListed) {
        if (!hasNext() || !isOn(model::linkToNext)) {
            return;
        }
        const Topic& next = outline_.at(position_ + 1);
        if (graphic()) {
            appendButton(next, model::nextPicture, "Go to next topic - ");
        } else if (!nextListed) {
            appendLink("next-topic", "The next topic is ", next);
        }
    }

    /// The two parent links share one paragraph.
    void appendParents() {
        bool paragraphOpen = false;
        const auto appendParent = [&](TextView text, int parent) {
            if (parent == 0) {
                return;
            }
            if (!paragraphOpen) {
                appendLine(page_, "<p>");
                paragraphOpen = true;
            }
            appendLink("return-major", text, outline_.at(parent));
        };
        appendParent("The previous parent topic was ", previousParent());
        appendParent("The next parent topic is ", nextParent());
        if (paragraphOpen) {
            appendLine(page_, "</p>");
        }
    }

    void appendBackToFirst() {
        const bool previousLeadsThere = position_ == 2 && isOn(model::linkToPrevious);
        if (!graphic() && hasPrevious() && isOn(model::linkToFirst) && !previousLeadsThere) {
            const Topic& first = outline_.at(1);
            appendLine(page_, R"(<div class="return-first"><p>Back to <a href=")", first.fileName,
                       R"(">)", first.title, "</a></p></div>");
        }
    }

private:
    bool graphic() const { return options_.navigationType == NavigationType::graphicButtons; }
    bool isOn(model::NavigationSwitch which) const { return options_.navigationButtons[which]; }
    bool hasPrevious() const { return position_ > 1; }
    bool hasNext() const { return position_ < outline_.count(); }
    bool isOneLevelUp(int position) const { return outline_.depth(position) == depth_ - 1; }

    /// The position to lead to, or 0 for no link.
    int previousParent() const {
        if (!isOn(model::linkToPreviousParent) || !hasPrevious() || depth_ == 1) {
            return 0;
        }
        if (isOneLevelUp(position_ - 1) && isOn(model::linkToPrevious)) {
            return 0; // the link to the previous topic leads there
        }
        int position = position_ - 1;
        while (position > 0 && !isOneLevelUp(position)) {
            --position;
        }
        return position;
    }

    /// Likewise. A topic of a still higher level does not end the search.
    int nextParent() const {
        if (!isOn(model::linkToNextParent) || !hasNext() || depth_ == 1) {
            return 0;
        }
        if (isOneLevelUp(position_ + 1) && isOn(model::linkToNext)) {
            return 0; // the link to the next topic leads there
        }
        for (int position = position_ + 1; position <= outline_.count(); ++position) {
            if (isOneLevelUp(position)) {
                return position;
            }
        }
        return 0;
    }

    void appendButton(const Topic& target, TextView picture, TextView text) {
        appendLine(page_, R"(<a href=")", target.fileName, R"(">)", model::imageTagStart, picture,
                   "' title='", text, target.title, "' align=middle border=0></a>");
    }

    void appendLink(TextView cssClass, TextView text, const Topic& target) {
        appendLine(page_, R"(<div class=")", cssClass, R"(">)", text, R"(<a href=")",
                   target.fileName, R"(">)", target.title, "</a></div>");
    }

    Text& page_;
    const TopicOutline& outline_;
    const ProjectOptions& options_;
    int position_;
    int depth_;
};

} // namespace

ListedTopics appendTopicLists(Text& page, const TopicOutline& outline,
                              const ProjectOptions& options, int position,
                              ListIntroduction introduction) {
    ListedTopics listed;
    if (!options.navigationButtons[model::linksToChildren]) {
        return listed;
    }
    const TextView ownWord = ownListWord(options, introduction);
    if (position == 1) {
        appendOverview(page, outline, options.projectName, ownWord, listed);
    }
    if (position < outline.count() && outline.depth(position + 1) > outline.depth(position)) {
        appendChildren(page, outline, position, ownWord, listed);
    }
    return listed;
}

void appendNavigation(Text& page, const TopicOutline& outline, const ProjectOptions& options,
                      int position, bool nextListed) {
    Navigation navigation(page, outline, options, position);
    navigation.appendHomeButton();
    navigation.appendPrevious();
    navigation.appendNext(nextListed);
    navigation.appendParents();
    navigation.appendBackToFirst();
}

} // namespace generate
