#include "generate/TopicSigns.h"

#include <algorithm>
#include <functional>
#include <tuple>

#include "generate/GenerationRun.h"
#include "generate/PageAddress.h"
#include "model/PagePath.h"
#include "model/ProjectFolders.h"
#include "platform/Files.h"
#include "text/FileFinder.h"
#include "text/HtmlReader.h"

namespace generate {

using model::Topic;
using text::Text;
using text::TextView;

namespace {

std::size_t indexOf(int position) {
    return static_cast<std::size_t>(position - 1);
}

/// Whether an address leads somewhere that can be looked for beside the project.
bool isLocal(const Text& address) {
    return !address.empty() && protocolOf(address).empty() && !address.starts_with('/')
           && !address.starts_with('\\') && address.front() != '#' && address.front() != '?';
}

/// From where the addresses of a topic count.
Text folderOf(const Topic& topic) {
    return pathFromPage(topic.fileName, {});
}

} // namespace

void TopicSigns::setFolder(const std::filesystem::path& folder) {
    if (folder_ != folder) {
        folder_ = folder;
        forgetFiles();
    }
}

void TopicSigns::reset(const model::ProjectOptions& options) {
    copied_.clear();
    for (const char* name : copiedPictures(options)) {
        copied_.push_back(model::pageKey(Text(model::imageFolderName) + '/' + name));
    }
    facts_.clear();
    pages_.clear();
    contextIds_.clear();
    contextNumbers_.clear();
    files_.clear();
    for (int position = 1; position <= outline_.count(); ++position) {
        inserted(position);
    }
}

void TopicSigns::inserted(int position) {
    const auto place = facts_.begin() + (position - 1);
    countFacts(*facts_.insert(place, factsOf(outline_.at(position), {})), 1);
}

void TopicSigns::removed(int position) {
    countFacts(facts_[indexOf(position)], -1);
    facts_.erase(facts_.begin() + (position - 1));
}

void TopicSigns::swapped(int a, int b) {
    std::swap(facts_[indexOf(a)], facts_[indexOf(b)]);
}

bool TopicSigns::changed(int position) {
    Facts& facts = facts_[indexOf(position)];
    const auto shared = [&facts] {
        return std::tuple(facts.page, facts.contextId, facts.contextNumber);
    };
    const auto before = shared();
    countFacts(facts, -1);
    facts = factsOf(outline_.at(position), std::move(facts));
    countFacts(facts, 1);
    return shared() != before;
}

void TopicSigns::count(std::map<Text, int>& values, const Text& value, int by) {
    if (!value.empty() && (values[value] += by) == 0) {
        values.erase(value);
    }
}

void TopicSigns::countFacts(const Facts& facts, int by) {
    count(pages_, facts.page, by);
    count(contextIds_, facts.contextId, by);
    count(contextNumbers_, facts.contextNumber, by);
}

bool TopicSigns::isShared(const std::map<Text, int>& values, const Text& value) {
    const auto found = values.find(value);
    return found != values.end() && found->second > 1;
}

/// Addresses are only read anew when the text, or the folder from which they count, is another.
TopicSigns::Facts TopicSigns::factsOf(const Topic& topic, Facts before) {
    Facts facts = std::move(before);
    facts.page = topic.fileName.empty() ? Text() : placeKey(topic.fileName);
    facts.contextId = text::lowerCase(topic.contextId);
    facts.contextNumber = topic.contextNumber;
    facts.isBodyRead = facts.isBodyRead && folderOf(topic) == facts.bodyFolder
                       && std::hash<TextView>()(topic.body) == facts.bodyHash;
    return facts;
}

const TopicSigns::Facts& TopicSigns::withBody(int position) const {
    Facts& facts = facts_[indexOf(position)];
    if (!facts.isBodyRead) {
        const Topic& topic = outline_.at(position);
        facts.isBodyRead = true;
        facts.bodyHash = std::hash<TextView>()(topic.body);
        facts.bodyFolder = folderOf(topic);
        facts.addresses = addressesOf(topic);
        facts.isEmpty = text::trim(text::oneLine(topic.body)).empty();
    }
    return facts;
}

std::vector<TopicSigns::Address> TopicSigns::addressesOf(const Topic& topic) {
    std::vector<Address> addresses;
    text::HtmlReader reader(topic.body);
    while (reader.next()) {
        for (const AddressPlace& place : addressPlaces()) {
            const auto value = reader.opens(place.tag) ? reader.attribute(place.attribute)
                                                       : std::optional<TextView>();
            const Text address = value ? plainAddress(*value) : Text();
            if (isLocal(address)) {
                const Text path = unescapedAddress(address.substr(0, address.find_first_of("#?")));
                const Text to = plainPlace(pathFromPage(topic.fileName, path));
                addresses.push_back(
                    {to, model::pageKey(to), address, place.kind == FindingKind::picture});
            }
        }
    }
    return addresses;
}

/// A page of the outline needs no file. Only what lies in the output folder is looked for.
bool TopicSigns::exists(const Address& address) const {
    if (std::find(copied_.begin(), copied_.end(), address.key) != copied_.end()) {
        return true;
    }
    if (folder_.empty()) {
        return address.isPicture;
    }
    if (address.place.starts_with("..") || !model::pageNameFault(address.place).empty()) {
        return false;
    }
    const auto [known, isNew] = files_.try_emplace(address.place, false);
    if (isNew) {
        const std::filesystem::path file = text::FileFinder(folder_).find(address.place);
        std::error_code ignored;
        known->second =
            !platform::leadsOutOf(folder_, file) && std::filesystem::exists(file, ignored);
    }
    return known->second;
}

Text TopicSigns::problems(int position) const {
    Text lines;
    const auto add = [&lines](TextView problem, TextView about = {}) {
        text::append(lines, lines.empty() ? "" : "\n", about, about.empty() ? "" : ": ", problem);
    };
    const Facts& facts = withBody(position);
    const Topic& topic = outline_.at(position);
    if (facts.isEmpty) {
        add("the topic has no text");
    }
    if (isShared(pages_, facts.page)) {
        add("another topic has the same page", topic.fileName);
    }
    if (topic.contextId.empty() != topic.contextNumber.empty()) {
        add(topic.contextId.empty() ? "a number without a context string"
                                    : "a context string without a number",
            topic.contextId + topic.contextNumber);
    }
    if (isShared(contextIds_, facts.contextId)) {
        add("another topic has it, too", topic.contextId);
    }
    if (isShared(contextNumbers_, facts.contextNumber)) {
        add("another topic has it, too", topic.contextNumber);
    }
    for (const Address& address : facts.addresses) {
        if (!pages_.contains(address.key) && !exists(address)) {
            add(address.isPicture ? "the picture is missing" : "leads nowhere", address.written);
        }
    }
    return lines;
}

} // namespace generate
