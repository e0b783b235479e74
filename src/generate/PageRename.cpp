#include "generate/PageRename.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

#include "generate/PageAddress.h"
#include "model/OutlineEditing.h"
#include "model/PagePath.h"
#include "text/Address.h"
#include "text/CharacterReferences.h"
#include "text/HtmlReader.h"

namespace generate {

using model::Topic;
using text::Text;
using text::TextView;

namespace {

constexpr TextView slashes = "/\\";

TextView folderOf(TextView path) {
    return path.substr(0, path.find_last_of(slashes) + 1);
}

Text folderKey(TextView name) {
    return placeKey(Text(folderOf(name)) + "x");
}

/// How an address is written where it stands.
struct Spelling {
    char slash = '/';
    char quote = 0;       ///< 0 for none
    bool escapes = false; ///< "%20" and the like
};

bool needsEscape(TextView name, std::size_t at, const Spelling& spelling) {
    constexpr TextView always = "#?";
    constexpr TextView unquoted = " \t\"'`=<>";
    constexpr TextView usual = " \"'<>`{}[]^|&+,;";
    const char c = name[at];
    const bool isForeign = (static_cast<unsigned char>(c) & 0x80U) != 0;
    if (always.find(c) != TextView::npos) {
        return true;
    }
    if (c == '%') {
        return spelling.escapes || text::unescaped(name.substr(at, 3)).size() == 1;
    }
    if (spelling.escapes) {
        return isForeign || usual.find(c) != TextView::npos;
    }
    return spelling.quote == 0 ? unquoted.find(c) != TextView::npos : c == spelling.quote;
}

/// A path as it stands in an attribute.
Text spelled(TextView path, const Spelling& spelling) {
    constexpr TextView digits = "0123456789ABCDEF";
    Text address;
    for (std::size_t at = 0; at < path.size(); ++at) {
        const auto byte = static_cast<unsigned char>(path[at]);
        if (slashes.find(path[at]) != TextView::npos) {
            address += spelling.slash;
        } else if (needsEscape(path, at, spelling)) {
            address += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        } else if (text::characterReferenceAt(path, at).length > 0) {
            address += "&amp;";
        } else {
            address += path[at];
        }
    }
    return address;
}

/// How long the path in an address is, as it stands in an attribute: "#" may be part of a reference
/// there.
std::size_t pathLength(TextView value) {
    std::size_t at = 0;
    while (at < value.size() && value[at] != '#' && value[at] != '?') {
        const std::size_t reference = text::characterReferenceAt(value, at).length;
        at += std::max<std::size_t>(reference, 1);
    }
    return at;
}

/// The path in an address that may be one of the project's; empty for any other.
Text projectPath(TextView value) {
    const Text address = plainAddress(value);
    const bool isElsewhere = address.empty() || !protocolOf(address).empty()
                             || slashes.find(address.front()) != TextView::npos;
    return isElsewhere ? Text() : plainAddress(value.substr(0, pathLength(value)));
}

/// The way from a page to a place; both count from the page folder.
Text pathBetween(TextView page, TextView place) {
    const Text from = text::plainPath(folderOf(page));
    Text path;
    TextView rest = place;
    TextView folders = from;
    for (;;) { // what both have in front
        const TextView mine = folders.substr(0, folders.find('/'));
        const std::size_t slash = rest.find_first_of(slashes);
        if (mine.empty() || slash == TextView::npos
            || model::pageKey(mine) != model::pageKey(rest.substr(0, slash))) {
            break;
        }
        rest.remove_prefix(slash + 1);
        folders.remove_prefix(std::min(mine.size() + 1, folders.size()));
    }
    for (; !folders.empty();
         folders.remove_prefix(std::min(folders.find('/'), folders.size() - 1) + 1)) {
        path += "../";
    }
    return path + Text(rest);
}

/// What an address that stands in a text on a topic's page becomes; nothing when it stays.
using Become = std::function<std::optional<Text>(int topic, TextView html, TextView value)>;

void countLines(TextView html, std::span<PageLink> ordered) {
    std::size_t line = 1;
    std::size_t counted = 0;
    for (PageLink& link : ordered) {
        const TextView passed = html.substr(counted, link.start - counted);
        line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
        counted = link.start;
        link.line = line;
    }
}

void search(std::vector<PageLink>& links, int topic, PageLink::Text where, TextView html,
            const Become& become) {
    const auto first = static_cast<std::ptrdiff_t>(links.size());
    text::HtmlReader reader(html);
    while (reader.next()) {
        for (const AddressPlace& place : addressPlaces()) {
            const auto value =
                reader.opens(place.tag) ? reader.attribute(place.attribute) : std::nullopt;
            if (!value || value->empty()) {
                continue;
            }
            auto renamed = become(topic, html, *value);
            if (renamed && *renamed != *value) {
                const auto start = static_cast<std::size_t>(value->data() - html.data());
                links.push_back(
                    {topic, where, start, value->size(), 1, Text(*value), std::move(*renamed)});
            }
        }
    }
    const std::span<PageLink> found(links.begin() + first, links.end());
    std::sort(found.begin(), found.end(), // a tag may have its addresses in any order
              [](const PageLink& a, const PageLink& b) { return a.start < b.start; });
    countLines(html, found);
}

/// The addresses in all texts that become others, in the order of the topics.
std::vector<PageLink> linksThatBecome(const model::TopicOutline& outline,
                                      const model::ProjectOptions& options, const Become& become) {
    std::vector<PageLink> links;
    search(links, 0, PageLink::Text::copyright, options.copyrightText, become);
    for (int position = 1; position <= outline.count(); ++position) {
        search(links, position, PageLink::Text::body, outline.at(position).body, become);
        if (position == 1) {
            search(links, position, PageLink::Text::additionalCode, options.additionalText, become);
        }
    }
    return links;
}

/// What addresses become when a page gets another name.
class Renamer {
public:
    Renamer(const model::TopicOutline& outline, const PageRenaming& renaming)
        : outline_(outline), renaming_(renaming), oldKey_(placeKey(renaming.oldName)),
          moves_(folderKey(renaming.oldName) != folderKey(renaming.newName)) {}

    std::optional<Text> operator()(int topic, TextView html, TextView value) const {
        const Text path = projectPath(value);
        if (path.empty()) {
            return {};
        }
        const Text before = pageOf(topic, false);
        const Text plain = unescapedAddress(path);
        const bool isWritten = placeKey(pathFromPage(before, path)) == oldKey_;
        const bool leadsHere = isWritten || placeKey(pathFromPage(before, plain)) == oldKey_;
        if (!leadsHere && !(moves_ && topic == renaming_.position)) {
            return {};
        }
        Spelling spelling;
        const std::size_t slash = path.find_first_of(slashes);
        spelling.slash = slash != Text::npos ? path[slash] : '/';
        const char around = value.data() > html.data() ? *(value.data() - 1) : ' ';
        spelling.quote = around == '"' || around == '\'' ? around : '\0';
        // Without need, that is: then the author, or a program, writes them always.
        spelling.escapes = !isWritten && plainAddress(spelled(plain, spelling)) != path;
        const std::size_t end = pathLength(value);
        const Text target = leadsHere ? renaming_.newName : targetOf(pathFromPage(before, plain));
        return newPath(topic, value.substr(0, end), target, spelling) + Text(value.substr(end));
    }

private:
    Text pageOf(int topic, bool renamed) const {
        if (topic == renaming_.position) {
            return renamed ? renaming_.newName : renaming_.oldName;
        }
        return topic > 0 ? outline_.at(topic).fileName : Text();
    }

    /// A place that counts from the page folder.
    static Text targetOf(TextView path) {
        const Text place = plainPlace(path);
        const Text pages = Text(model::pageFolderName) + '/';
        return text::startsWithIgnoringCase(place, pages) ? place.substr(pages.size())
                                                          : "../" + place;
    }

    Text newPath(int topic, TextView written, TextView target, const Spelling& spelling) const {
        const bool isOwn = topic == renaming_.position && moves_;
        if (!isOwn && !moves_) { // the author's way to the folder stays
            const std::size_t slash = target.find_last_of(slashes) + 1;
            return Text(folderOf(written)) + spelled(target.substr(slash), spelling);
        }
        const Text page = pageOf(topic, true);
        const bool isBelow = target.starts_with("..");
        const TextView folder = isBelow ? TextView() : throughPageFolder(written);
        Text path = folder.empty() ? pathBetween(page, target) : Text(folder) + '/' + Text(target);
        for (Text from = folder.empty() ? Text() : pathBetween(page, "x"); !from.empty();
             from.erase(0, std::min(from.find('/'), from.size() - 1) + 1)) {
            path.insert(0, "../");
        }
        return spelled(path, spelling);
    }

    /// The name of the page folder in a path that leaves it and comes back; empty in any other.
    static TextView throughPageFolder(TextView path) {
        const TextView before = path;
        while (path.starts_with("../") || path.starts_with("..\\")) {
            path.remove_prefix(3);
        }
        const TextView name = path.substr(0, path.find_first_of(slashes));
        const bool comesBack = path.size() < before.size() && name.size() < path.size()
                               && text::equalIgnoringCase(name, model::pageFolderName);
        return comesBack ? name : TextView();
    }

    const model::TopicOutline& outline_;
    const PageRenaming& renaming_;
    Text oldKey_;
    bool moves_; ///< to another folder
};

/// Puts the new addresses in, from the last to the first.
Text withLinks(Text text, std::span<const PageLink> links) {
    std::for_each(links.rbegin(), links.rend(), [&text](const PageLink& link) {
        text.replace(link.start, link.length, link.renamed);
    });
    return text;
}

} // namespace

std::vector<PageLink> linksToFollow(const model::TopicOutline& outline,
                                    const model::ProjectOptions& options,
                                    const PageRenaming& renaming) {
    return linksThatBecome(outline, options, Renamer(outline, renaming));
}

std::vector<PageLink> linksThatBreak(const model::Project& project,
                                     std::span<const int> positions) {
    const model::TopicOutline& outline = project.outline();
    std::vector<bool> stays(static_cast<std::size_t>(outline.count()) + 1, true);
    for (const int position : positions) {
        stays[static_cast<std::size_t>(position)] = false;
    }
    const auto staysAt = [&stays](int topic) { return stays[static_cast<std::size_t>(topic)]; };
    std::set<Text> gone;
    for (const int position : positions) {
        const Text& name = outline.at(position).fileName;
        if (model::pageNameFault(name).empty()) {
            gone.insert(placeKey(name));
        }
    }
    for (int position = 1; position <= outline.count(); ++position) {
        if (staysAt(position)) {
            gone.erase(placeKey(outline.at(position).fileName));
        }
    }
    if (gone.empty()) {
        return {};
    }
    return linksThatBecome(
        outline, project.options(),
        [&](int topic, TextView /*html*/, TextView value) -> std::optional<Text> {
            const Text path = staysAt(topic) ? projectPath(value) : Text();
            if (path.empty()) {
                return {};
            }
            const Text page = topic > 0 ? outline.at(topic).fileName : Text();
            const bool breaks =
                gone.contains(placeKey(pathFromPage(page, path)))
                || gone.contains(placeKey(pathFromPage(page, unescapedAddress(path))));
            return breaks ? std::optional(Text()) : std::nullopt;
        });
}

std::size_t topicsWith(std::span<const PageLink> links) {
    std::set<int> topics;
    for (const PageLink& link : links) {
        topics.insert(link.topic);
    }
    topics.erase(0);
    return topics.size();
}

void followRenaming(model::Project& project, std::span<const PageLink> links) {
    const model::UndoStep step(project, "Rename Page");
    model::ProjectOptions options = project.options();
    while (!links.empty()) {
        const PageLink& first = links.front();
        const auto end = std::find_if(links.begin(), links.end(), [&first](const PageLink& link) {
            return link.topic != first.topic || link.where != first.where;
        });
        const auto some = links.first(static_cast<std::size_t>(end - links.begin()));
        if (first.where == PageLink::Text::body) {
            project.setField(first.topic, &Topic::body,
                             withLinks(project.outline().at(first.topic).body, some));
            model::markTopicChanged(project, first.topic);
        } else {
            Text& text = first.where == PageLink::Text::copyright ? options.copyrightText
                                                                  : options.additionalText;
            text = withLinks(std::move(text), some);
        }
        links = links.subspan(some.size());
    }
    if (options != project.options()) {
        project.setOptions(std::move(options));
        project.markChanged(model::projectChanged);
    }
}

Text renamingFault(const model::Project& project, int position, TextView newName) {
    if (const TextView fault = model::pageNameFault(newName); !fault.empty()) {
        return Text(fault);
    }
    if (!project.options().codePage().hasAll(newName)) {
        return "the name has letters that the project's language lacks";
    }
    const Text key = placeKey(newName);
    for (int other = 1; other <= project.outline().count(); ++other) {
        if (other != position && placeKey(project.outline().at(other).fileName) == key) {
            return "topic " + std::to_string(other) + " has this page";
        }
    }
    return {};
}

} // namespace generate
