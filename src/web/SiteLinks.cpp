#include "web/SiteLinks.h"

#include <algorithm>

#include "generate/PageAddress.h"
#include "text/Address.h"
#include "text/HtmlReader.h"

namespace web {

using generate::AddressTarget;
using text::Text;
using text::TextView;

namespace {

/// "#" or "?" and what follows, as it may stand in an attribute however that is quoted.
Text escapedRest(TextView rest) {
    Text escaped;
    for (const char character : rest) {
        if (TextView("#?%=+").find(character) != TextView::npos) {
            escaped += character;
        } else if (character == '&') {
            escaped += "&amp;";
        } else {
            escaped += text::escapedAddress(TextView(&character, 1));
        }
    }
    return escaped;
}

/// Whether an attribute, named in small letters, does; old editors write styles in capitals.
bool setsColour(TextView name, TextView value) {
    const Text style = name == "style" ? text::lowerAscii(value) : Text();
    return name == "color" || name == "bgcolor" || name == "background"
           || style.find("color") != Text::npos || style.find("background") != Text::npos;
}

bool isAddressPlace(TextView tag, TextView attribute) {
    const auto places = generate::addressPlaces();
    return std::any_of(places.begin(), places.end(), [&](const generate::AddressPlace& place) {
        return tag == place.tag && attribute == place.attribute;
    });
}

} // namespace

void SiteLinks::append(Text& page, TextView html, int from, const Text& place) {
    std::size_t done = 0;
    text::HtmlReader reader(html);
    while (reader.next()) {
        if (reader.isText() || reader.closes()) {
            continue;
        }
        const Text tag = reader.lowerName();
        if (tag == "style") {
            lookAtStyle(reader.contents(), from);
        }
        for (const auto& [givenName, value] : reader.attributes()) {
            const Text name = text::lowerAscii(givenName);
            hasColours_ = hasColours_ || setsColour(name, value.value_or(""));
            if (value && name == "style") {
                lookAtStyle(*value, from);
            } else if (value && name == "srcset") {
                const std::size_t start = reader.offset() - 1;
                wantAll(workshop::readPage(html.substr(start, reader.end() - start)).addresses,
                        from);
            } else if (value && isAddressPlace(tag, name)) {
                const auto start = static_cast<std::size_t>(value->data() - html.data());
                text::append(page, html.substr(done, start - done),
                             addressFor(*value, from, place));
                done = start + value->size();
            }
        }
    }
    page += html.substr(done);
}

/// Pages in one folder lead to each other by the same addresses, again and again.
Text SiteLinks::addressFor(TextView address, int from, const Text& place) {
    const Text name = from > 0 ? outline_.at(from).fileName : Text();
    Text key = name.substr(0, name.find_last_of("/\\") + 1);
    text::append(key, "\n", TextView(place).substr(0, place.rfind('/') + 1), "\n", address);
    if (const auto known = known_.find(key); known != known_.end()) {
        sources_.repeat(known->second.from, known->second.to);
        return known->second.address;
    }
    bool isForAll = true;
    const std::size_t before = sources_.askedCount();
    Text made = newAddressFor(address, from, place, isForAll);
    if (isForAll) {
        known_.emplace(std::move(key), Known{made, before, sources_.askedCount()});
    }
    return made;
}

/// The address itself where it leads to nothing of ours. Only one that leads to its own page is
/// another one on other pages in the same folder.
Text SiteLinks::newAddressFor(TextView address, int from, const Text& place, bool& isForAll) {
    const Text plain = generate::plainAddress(address);
    const AddressTarget target = targets_.targetOf(from, plain);
    if (target.kind == AddressTarget::Kind::page) {
        isForAll = target.page > 0 && target.rest.empty();
        if (target.page == 0) {
            return Text(address);
        }
        if (!map_.hasPage(target.page)) {
            return "#ts-main"; // what has no page leads nowhere
        }
        const Text& page = map_.at(target.page).place;
        const Text rest = escapedRest(restFor(target, from));
        return page == place && !rest.empty() ? rest : relativeAddress(place, page) + rest;
    }
    if (target.kind == AddressTarget::Kind::file) {
        for (const Text& file : targets_.filePlaces(from, target.path)) {
            if (const auto found = sources_.want(file)) {
                return relativeAddress(place, *found) + escapedRest(target.rest);
            }
        }
    }
    return Text(address);
}

/// What follows the page in an address, with the place on it as it is spelt there: browsers tell
/// letter case apart.
Text SiteLinks::restFor(const AddressTarget& target, int from) {
    const std::size_t hash = target.rest.find('#');
    if (hash == TextView::npos) {
        return Text(target.rest);
    }
    needsOthers_ = needsOthers_ || target.page != from;
    const auto [found, isNew] = anchors_.try_emplace(target.page);
    if (isNew) {
        found->second.add(outline_.at(target.page).title);
        found->second.add(outline_.at(target.page).body);
    }
    const Text name = found->second.otherNameFor(target.rest);
    return name.empty() ? Text(target.rest) : Text(target.rest.substr(0, hash + 1)) + name;
}

void SiteLinks::lookAtStyle(TextView css, int from) {
    wantAll(workshop::readStyleSheet(text::resolvedReferences(css)), from);
}

/// Files whose addresses stay as they stand.
void SiteLinks::wantAll(const std::vector<workshop::PageText>& addresses, int from) {
    for (const workshop::PageText& address : addresses) {
        const AddressTarget target = targets_.targetOf(from, address.text);
        if (target.kind == AddressTarget::Kind::file) {
            for (const Text& file : targets_.filePlaces(from, target.path)) {
                sources_.want(file);
            }
        }
    }
}

Text SiteLinks::optionPlace(const Text& address) {
    const AddressTarget target = targets_.targetOf(generate::PageTargets::allPages, address);
    if (target.kind == AddressTarget::Kind::file) {
        for (const Text& file : targets_.filePlaces(generate::PageTargets::allPages, target.path)) {
            if (const auto found = sources_.want(file)) {
                return *found;
            }
        }
    }
    return {};
}

bool SiteLinks::takeHasColours() {
    return std::exchange(hasColours_, false);
}

} // namespace web
