#include "generate/PageTargets.h"

#include <algorithm>

#include "generate/PageAddress.h"
#include "model/PagePath.h"

namespace generate {

using text::Text;
using text::TextView;

namespace {

/// Whether an address, or what it means, leads past the page to a root, a drive or a share.
bool isOfThisComputer(TextView address) {
    const TextView protocol = protocolOf(address);
    return protocol.size() == 1 || text::equalIgnoringCase(protocol, "file")
           || address.starts_with('/') || address.starts_with('\\');
}

} // namespace

PageTargets::PageTargets(const model::TopicOutline& outline) : outline_(outline) {
    for (int position = 1; position <= outline.count(); ++position) {
        const Text& name = outline.at(position).fileName;
        const auto [first, isNew] = pages_.emplace(placeKey(name), position);
        if (!isNew && !name.empty()) {
            sharers_.emplace(first->second, position);
        }
    }
}

int PageTargets::sharerOf(int page) const {
    const auto found = sharers_.find(page);
    return found == sharers_.end() ? 0 : found->second;
}

AddressTarget PageTargets::targetOf(int position, const Text& address) const {
    using Kind = AddressTarget::Kind;
    const TextView protocol = protocolOf(address);
    const bool isWeb = address.starts_with("//");
    if (isWeb || (protocol.size() > 1 && !text::equalIgnoringCase(protocol, "file"))) {
        return {Kind::elsewhere, 0, {}, {}};
    }
    if (address.empty()) {
        return {};
    }
    if (isOfThisComputer(address) || isOfThisComputer(unescapedAddress(address))) {
        return {Kind::ownComputer, 0, {}, {}};
    }
    if (const int page = pageOf(position, address); page > 0) {
        return {Kind::page, page, {}, {}};
    }
    const TextView whole = address;
    const std::size_t end = std::min(whole.find_first_of("#?"), whole.size());
    const TextView path = whole.substr(0, end);
    const int page = path.empty() && end < whole.size() ? position : pageOf(position, path);
    return page >= 0 ? AddressTarget{Kind::page, page, {}, whole.substr(end)}
                     : AddressTarget{Kind::file, 0, path, whole.substr(end)};
}

std::vector<Text> PageTargets::filePlaces(int position, TextView path) const {
    return {plainPlace(fromPage(position, path)),
            plainPlace(fromPage(position, unescapedAddress(path)))};
}

/// A file below the page folder by a path as it stands on the page of a topic.
Text PageTargets::fromPage(int position, TextView path) const {
    return pathFromPage(position > 0 ? outline_.at(position).fileName : Text(), path);
}

/// The position of the topic to whose page a path leads; -1 for none.
int PageTargets::pageOf(int position, TextView path) const {
    for (const Text& place : filePlaces(position, path)) {
        if (const auto found = pages_.find(model::pageKey(place)); found != pages_.end()) {
            return found->second;
        }
    }
    return -1;
}

} // namespace generate
