#include "generate/PageAnchors.h"

#include <algorithm>

#include "generate/PageAddress.h"

namespace generate {

using text::Text;
using text::TextView;

namespace {

TextView nameIn(TextView rest) {
    const std::size_t hash = rest.find('#');
    return hash == TextView::npos ? TextView() : rest.substr(hash + 1);
}

} // namespace

std::vector<Text> anchorsOf(const text::HtmlReader& reader) {
    std::vector<Text> names;
    if (reader.isText() || reader.closes()) {
        return names;
    }
    for (const char* attribute : {"id", "name"}) {
        const bool counts = TextView(attribute) == "id" || reader.opens("a");
        const auto name = counts ? reader.attribute(attribute) : std::nullopt;
        if (name && !plainAddress(*name).empty()) {
            names.push_back(plainAddress(*name));
        }
    }
    return names;
}

Text anchorKey(TextView name) {
    return text::lowerCase(name);
}

std::array<Text, 2> anchorKeysIn(TextView rest) {
    const TextView name = nameIn(rest);
    return {anchorKey(name), anchorKey(unescapedAddress(name))};
}

void PageAnchors::add(TextView html) {
    text::HtmlReader reader(html);
    while (reader.next()) {
        for (Text& name : anchorsOf(reader)) {
            names_[anchorKey(name)].push_back(std::move(name));
        }
    }
}

Text PageAnchors::otherNameFor(TextView rest) const {
    const TextView name = nameIn(rest);
    for (const Text& key : anchorKeysIn(rest)) {
        if (const auto found = names_.find(key); found != names_.end()) {
            const std::vector<Text>& names = found->second;
            const bool isSame = std::any_of(names.begin(), names.end(), [name](const Text& each) {
                return each == name || each == unescapedAddress(name);
            });
            return isSame ? Text() : names.front();
        }
    }
    return {};
}

} // namespace generate
