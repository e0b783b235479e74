#include "app/LinkFollower.h"

#include <algorithm>
#include <utility>

#include "generate/PageRename.h"
#include "import/ImportOutcome.h"
#include "model/PagePath.h"
#include "ui/Prompter.h"

namespace app {

using generate::PageLink;
using importer::counted;
using text::Text;

namespace {

/// "3 links in 2 topics".
Text countedLinks(const std::vector<PageLink>& links) {
    const std::size_t topics = generate::topicsWith(links);
    return counted(links.size(), "link")
           + (topics > 0 ? " in " + counted(topics, "topic") : Text(" on all pages"));
}

/// Where they stand, a line each, as long as there are not too many.
Text named(const std::vector<PageLink>& links, const model::TopicOutline& outline) {
    constexpr std::size_t most = 10;
    Text lines;
    for (std::size_t i = 0; i < std::min(links.size(), most); ++i) {
        const PageLink& link = links[i];
        text::append(lines, "\n",
                     link.topic > 0 ? text::oneLine(outline.at(link.topic).title) : "All pages",
                     ", line ", std::to_string(link.line), ": ", text::oneLine(link.address));
    }
    return links.size() > most ? lines + "\nand " + std::to_string(links.size() - most) + " more"
                               : lines;
}

} // namespace

void LinkFollower::beforeTyping() {
    if (position_ != project_.currentIndex()) {
        position_ = project_.currentIndex();
        oldName_ = position_ > 0 ? project_.outline().at(position_).fileName : Text();
    }
}

bool LinkFollower::hasOldPage(int exceptFor) const {
    const Text key = model::pageKey(oldName_);
    for (int position = 1; position <= project_.outline().count(); ++position) {
        if (position != exceptFor
            && model::pageKey(project_.outline().at(position).fileName) == key) {
            return true;
        }
    }
    return false;
}

void LinkFollower::finishTyping() {
    const int position = std::exchange(position_, 0); // a question makes the field lose the focus
    if (position == 0 || position != project_.currentIndex()) {
        return;
    }
    const Text& newName = project_.outline().at(position).fileName;
    if (model::pageKey(newName) == model::pageKey(oldName_)
        || !model::pageNameFault(oldName_).empty() || hasOldPage(position)
        || !generate::renamingFault(project_, position, newName).empty()) {
        return;
    }
    const auto find = [&] {
        return generate::linksToFollow(project_.outline(), project_.options(),
                                       {position, oldName_, newName});
    };
    auto links = find();
    if (links.empty()
        || ui::Prompter::current().ask(&host_.window(),
                                       {"Change " + countedLinks(links) + "?", "Rename Page",
                                        ui::Buttons::yesNo, ui::QuestionIcon::question})
               != ui::Answer::yes) {
        return;
    }
    const bool ownToo = std::any_of(links.begin(), links.end(), [position](const PageLink& link) {
        return link.topic == position;
    });
    if (ownToo && !host_.closeEditor()) { // it shows that text
        return;
    }
    links = ownToo ? find() : std::move(links);
    const model::UndoStep step(project_, "Edit Topic Filename", &model::Topic::fileName);
    generate::followRenaming(project_, links);
}

bool LinkFollower::mayDelete(const model::Positions& topics) {
    const auto links = generate::linksThatBreak(project_, topics);
    const Text what = topics.size() == 1 ? "topic" : "topics";
    return links.empty()
           || ui::Prompter::current().ask(&host_.window(),
                                          {countedLinks(links) + " will lead nowhere:\n"
                                               + named(links, project_.outline())
                                               + "\n\nDelete the " + what + " all the same?",
                                           topics.size() == 1 ? "Delete Topic" : "Delete Topics",
                                           ui::Buttons::yesNo, ui::QuestionIcon::exclamation})
                  == ui::Answer::yes;
}

} // namespace app
