#include "import/HelpBodies.h"

#include <algorithm>

#include "import/AddressRewriter.h"
#include "import/PageCutter.h"
#include "import/PageHeadings.h"
#include "import/RepeatedParts.h"
#include "model/PagePath.h"
#include "model/ProjectFolders.h"
#include "text/Address.h"
#include "text/HtmlReader.h"
#include "text/Path.h"

namespace importer {

using text::Text;
using text::TextView;

namespace {

constexpr TextView emptyBody = "<p></p>"; // an empty one would be generated as a reminder to write
// Of all pages; ten times that is needed while they are made.
constexpr std::uint64_t mostBytes = std::uint64_t(48) << 20;
constexpr std::size_t mostNotes = 1000;

void count(std::unordered_map<Text, std::size_t>& counts, const Text& key) {
    if (!key.empty()) {
        ++counts[key];
    }
}

/// The one that most pages have; of several, the first in the alphabet.
Text commonest(const std::unordered_map<Text, std::size_t>& counts) {
    const auto best =
        std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) {
            return a.second != b.second ? a.second < b.second : a.first > b.first;
        });
    return best == counts.end() ? Text() : best->first;
}

/// As it stands on a page in the page folder.
Text fromPageFolder(const Text& place) {
    const Text pages = Text(model::pageFolderName) + '/';
    if (text::startsWithIgnoringCase(place, pages)) {
        return place.substr(pages.size());
    }
    Text address = "../" + place;
    if (text::startsWithIgnoringCase(place, Text(model::imageFolderName) + '/')) {
        std::replace(address.begin(), address.end(), '/', '\\'); // as the editor writes pictures
    }
    return address;
}

/// Whether an address on a page in the page folder leads to a place in the project's folder.
bool leadsTo(TextView address, const Text& place) {
    const Text path = Text(model::pageFolderName) + '/' + Text(withoutAnchor(address));
    const Text key = model::pageKey(place);
    return model::pageKey(text::plainPath(path)) == key
           || model::pageKey(text::plainPath(text::unescaped(path))) == key;
}

} // namespace

HelpBodies::HelpBodies(const HelpSource& source, HelpFiles& files,
                       std::vector<ImportedTopic>& topics)
    : source_(source), files_(files), topics_(topics), bodies_(topics.size()),
      keywords_(topics.size()), descriptions_(topics.size()), isOurs_(topics.size()) {
    for (std::size_t i = 0; i < topics.size(); ++i) {
        const PlannedTopic& planned = *topics[i].planned;
        if (!planned.page.empty()) {
            ofPage_[pathKey(planned.page)].push_back(i);
        }
        if (!planned.anchor.empty()) {
            anchors_.try_emplace(pathKey(planned.page) + '#' + planned.anchor, i);
        }
    }
}

void HelpBodies::note(std::size_t topic, Text text, bool isLoss) {
    if (notes_.size() < mostNotes && noted_.insert(std::to_string(topic) + text).second) {
        notes_.push_back({topic, std::move(text), isLoss});
    }
}

void HelpBodies::make(bool leavesOutRepeated) {
    readPages();
    settleDescriptions();
    if (leavesOutRepeated) {
        leaveOutRepeated();
    }
    for (std::size_t i = 0; i < topics_.size(); ++i) {
        const auto topics = ofPage_.find(pathKey(topics_[i].planned->page));
        if (topics != ofPage_.end() && topics->second.front() == i
            && (topics->second.size() > 1 || !topics_[i].planned->anchor.empty())) {
            cutPage(topics->second);
        }
    }
    for (std::size_t i = 0; i < topics_.size(); ++i) {
        if (topics_[i].planned->page.empty()) {
            bodies_[i] = linkBody(i);
        } else if (!isOurs_[i]) {
            bodies_[i] =
                withoutMadePlaces(withoutTitleHeading(bodies_[i], topics_[i].planned->title));
            bodies_[i] = bodies_[i].empty() ? Text(emptyBody) : bodies_[i];
        }
        rewrite(i);
    }
}

void HelpBodies::readPages() {
    for (std::size_t i = 0; i < topics_.size(); ++i) {
        const Text& page = topics_[i].planned->page;
        if (!page.empty() && ofPage_[pathKey(page)].front() == i) {
            readPage(i);
        }
    }
}

void HelpBodies::readPage(std::size_t topic) {
    const Text& path = topics_[topic].planned->page;
    const std::uint64_t size = source_.sizeOf(path); // a huge one leaves room for others
    const bool fits = size <= HelpSource::largestFile && size <= mostBytes - bytesRead_;
    bytesRead_ += fits ? size : 0;
    const auto html = fits ? source_.readText(path) : std::nullopt;
    if (!html) {
        note(topic, "its page " + path + " is too large or damaged");
        return;
    }
    ForeignPage page = readForeignPage(*html, source_.codePage);
    isOurs_[topic] = page.isOurs;
    takeTitle(topic, page);
    Text sheets;
    for (const Text& address : page.styleSheets) {
        if (const auto sheet = source_.target(path, text::resolvedReferences(address))) {
            text::append(sheets, *sheet, "\n");
        }
    }
    if (!page.style.empty()) {
        text::append(sheets, "\n", page.style);
    }
    count(styleSheets_, sheets);
    styledPages_.try_emplace(sheets, path);
    if (const auto picture = source_.target(path, text::resolvedReferences(page.background))) {
        count(backgrounds_, *picture);
    }
    takeDescriptions(topic, page);
    keywords_[topic] = std::move(page.keywords);
    bodies_[topic] = std::move(page.body);
}

/// On our own pages it stands as it was typed.
void HelpBodies::takeTitle(std::size_t topic, const ForeignPage& page) {
    if (page.isOurs && plainText(page.title) == plainText(topics_[topic].topic.title)) {
        topics_[topic].topic.title = page.title;
    }
}

/// What a page above says of one was written for this one alone.
void HelpBodies::takeDescriptions(std::size_t topic, const ForeignPage& page) {
    if (descriptions_[topic].empty()) {
        descriptions_[topic] = page.description;
    }
    for (const ListedPage& each : page.listed) {
        const auto path = source_.target(topics_[topic].planned->page, each.address);
        if (const auto target = path ? topicAt(*path) : std::nullopt) {
            listed_[*target] = each.description;
        }
    }
}

/// Some tools say the same of every page.
void HelpBodies::settleDescriptions() {
    constexpr std::size_t fewest = 3;
    std::unordered_map<Text, std::size_t> counts;
    for (const Text& each : descriptions_) {
        count(counts, each);
    }
    for (Text& each : descriptions_) {
        if (!each.empty() && counts[each] >= fewest) {
            each.clear();
        }
    }
    for (auto& [topic, description] : listed_) {
        descriptions_[topic] = std::move(description);
    }
}

void HelpBodies::leaveOutRepeated() {
    std::vector<std::size_t> whose;
    std::vector<PageBody> bodies;
    for (std::size_t i = 0; i < bodies_.size(); ++i) {
        if (!bodies_[i].empty() && !isOurs_[i]) {
            whose.push_back(i);
            bodies.push_back({topics_[i].planned->page, std::move(bodies_[i])});
        }
    }
    shortened_ = removeRepeatedParts(bodies);
    for (std::size_t i = 0; i < whose.size(); ++i) {
        bodies_[whose[i]] = std::move(bodies[i].body);
    }
}

/// The topics of one page get what begins at their anchors.
void HelpBodies::cutPage(const std::vector<std::size_t>& topics) {
    std::vector<Text> anchors;
    std::vector<std::size_t> whose;
    for (const std::size_t each : topics) {
        if (!topics_[each].planned->anchor.empty()) {
            anchors.push_back(topics_[each].planned->anchor);
            whose.push_back(each);
        }
    }
    std::vector<Text> parts = cutAt(bodies_[topics.front()], anchors);
    const bool hasOwnStart = topics_[topics.front()].planned->anchor.empty();
    for (Text& part : parts) { // line ends that stood before the next one
        part.resize(part.find_last_not_of("\r\n") + 1);
    }
    bodies_[topics.front()] = hasOwnStart ? std::move(parts.front()) : Text();
    for (std::size_t i = 0; i < whose.size(); ++i) {
        if (parts[i + 1].empty()) {
            note(whose[i], "its page has no place \"" + anchors[i] + "\"", false);
        }
        // What stands before all anchors belongs to the first of them where nothing else is there.
        bodies_[whose[i]] = (i == 0 && !hasOwnStart ? parts.front() : Text()) + parts[i + 1];
    }
    const Text page = pathKey(topics_[topics.front()].planned->page) + '#';
    for (const std::size_t each : topics) {
        for (const Text& anchor : anchorsIn(bodies_[each])) {
            anchors_.try_emplace(page + anchor, each);
        }
    }
}

Text HelpBodies::linkBody(std::size_t topic) {
    const Text& link = topics_[topic].planned->link;
    if (link.empty()) {
        return Text(emptyBody);
    }
    const bool isThere = leadsElsewhere(link) || source_.find(withoutAnchor(link));
    if (!isThere) {
        note(topic, "leads to " + link + ", " + Text(source_.missing));
        return Text(emptyBody);
    }
    return "<p><a href='" + htmlFromText(link) + "'>" + topics_[topic].topic.title + "</a></p>";
}

void HelpBodies::rewrite(std::size_t topic) {
    bodies_[topic] = withNewAddresses(bodies_[topic], [this, topic](const FoundAddress& found) {
        return newAddress(topic, found.address);
    });
}

std::optional<std::size_t> HelpBodies::topicAt(TextView page) const {
    const auto path = leadsElsewhere(page) ? std::nullopt : source_.find(withoutAnchor(page));
    const auto topics = path ? ofPage_.find(pathKey(*path)) : ofPage_.end();
    if (topics == ofPage_.end()) {
        return {};
    }
    const auto part = anchors_.find(pathKey(*path) + '#' + Text(anchorOf(page)));
    return part == anchors_.end() ? topics->second.front() : part->second;
}

/// Authors' own links on our own pages stay as they are where they lead to the same page.
std::optional<Text> HelpBodies::linkTo(std::size_t topic, std::size_t target,
                                       const Text& address) const {
    const Text& name = topics_[target].topic.fileName;
    if (isOurs_[topic] && leadsTo(address, Text(model::pageFolderName) + '/' + name)) {
        return {}; // as it is
    }
    const Text anchor(anchorOf(address));
    return R"(..\html\)" + name + (anchor.empty() ? Text() : '#' + anchor);
}

std::optional<Text> HelpBodies::newAddress(std::size_t topic, const Text& address) {
    if (leadsElsewhere(address)) {
        noteElsewhere(topic, address);
        return {};
    }
    const Text& page = topics_[topic].planned->page;
    if (withoutAnchor(address).empty()) { // a place on the same page
        const auto part = topicAt(page + address);
        return part && *part != topic && anchors_.contains(pathKey(page) + address)
                   ? linkTo(topic, *part, address)
                   : std::nullopt;
    }
    const auto path = source_.target(page, address);
    if (!path) {
        note(topic, "names " + address + ", " + Text(source_.missing), false);
        return {};
    }
    if (const auto target =
            topicAt(*path + Text(address.substr(std::min(address.find('#'), address.size()))))) {
        return linkTo(topic, *target, address);
    }
    if (text::isPageName(*path)) {
        note(topic, "leads to " + *path + ", which did not come in", false);
        return {};
    }
    const auto place = files_.place(*path);
    return !place || (isOurs_[topic] && leadsTo(address, *place))
               ? std::nullopt
               : std::optional(fromPageFolder(*place));
}

/// The web stays where it is.
void HelpBodies::noteElsewhere(std::size_t topic, const Text& address) {
    if (address.find("::") != Text::npos) {
        note(topic, "leads to another help: " + address, false);
    } else if (address.find(':') == 1 || text::startsWithIgnoringCase(address, "file:")
               || address.starts_with("\\\\")) {
        note(topic, "leads to the computer where the help was made: " + address, false);
    }
}

/// Several become one that names them, and so does what stands in the pages themselves.
Text HelpBodies::styleSheet() {
    const Text both = commonest(styleSheets_);
    Text imports;
    Text only;
    std::size_t count = 0;
    std::size_t at = 0;
    for (; at < both.size() && both[at] != '\n'; at = both.find('\n', at) + 1) {
        if (const auto place = files_.place(both.substr(at, both.find('\n', at) - at))) {
            only = fromPageFolder(*place);
            text::appendLine(imports, "@import url(\"", *place, "\");");
            ++count;
        }
    }
    if (at < both.size()) {
        const Text& page = styledPages_[both];
        imports += withNewUrls(TextView(both).substr(at + 1), [&](const FoundAddress& found) {
            const auto path = source_.target(page, found.address);
            return path ? files_.place(*path) : std::nullopt;
        });
        count = 2;
    }
    constexpr const char* collection = "imported.css";
    return count < 2                           ? only
           : files_.write(collection, imports) ? fromPageFolder(collection)
                                               : Text();
}

Text HelpBodies::background() {
    const Text picture = commonest(backgrounds_);
    const auto place = picture.empty() ? std::nullopt : files_.place(picture);
    return place ? fromPageFolder(*place) : Text();
}

} // namespace importer
