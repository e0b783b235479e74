#include "book/ImageMaps.h"

#include <algorithm>

namespace book {

using text::append;
using text::Text;
using text::TextView;

namespace {

Text attributeOf(const text::HtmlReader& tag, TextView name) {
    return text::resolvedReferences(text::trim(tag.attribute(name).value_or("")));
}

/// Whole numbers with commas between; empty for anything else.
Text numbersOf(const Text& corners, std::size_t& count) {
    Text numbers;
    count = 0;
    TextView rest = corners;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(", \t\r\n;"), rest.size());
        const TextView number = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (number.empty()) {
            continue;
        }
        constexpr std::size_t mostDigits = 6;
        if (number.size() > mostDigits
            || !std::all_of(number.begin(), number.end(), text::isAsciiDigit)) {
            return {};
        }
        append(numbers, numbers.empty() ? "" : ",", number);
        ++count;
    }
    return numbers;
}

/// The shape as the standard calls it; empty when the numbers do not fit.
Text shapeOf(const Text& given, std::size_t count) {
    constexpr std::size_t rectangle = 4;
    constexpr std::size_t circle = 3;
    constexpr std::size_t triangle = 6;
    if (given == "default") {
        return given;
    }
    if (given == "circle" || given == "circ") {
        return count == circle ? "circle" : "";
    }
    if (given.starts_with("poly")) {
        return count >= triangle && count % 2 == 0 ? "poly" : "";
    }
    return count == rectangle ? "rect" : "";
}

} // namespace

ImageMaps::ImageMaps(TextView html) {
    constexpr std::size_t most = 1000; // areas of a map
    text::HtmlReader reader(html);
    std::vector<Area>* areas = nullptr;
    while (reader.next()) {
        if (reader.isText()) {
            continue;
        }
        if (reader.lowerName() == "map") {
            areas = reader.closes() ? nullptr
                                    : &maps_[text::lowerCase(attributeOf(reader, "name"))].areas;
        } else if (areas != nullptr && areas->size() < most && reader.opens("area")) {
            std::size_t count = 0;
            const Text corners = numbersOf(attributeOf(reader, "coords"), count);
            const Text shape = shapeOf(text::lowerAscii(attributeOf(reader, "shape")), count);
            const auto address = reader.attribute("href");
            if (address && !shape.empty()) {
                Text words = attributeOf(reader, "alt");
                areas->push_back({shape, corners, Text(*address),
                                  words.empty() ? attributeOf(reader, "title") : words});
            }
        }
    }
}

Text ImageMaps::strictAreas(const Map& map, MarkupPlaces& places) {
    Text areas;
    for (const Area& area : map.areas) {
        const auto target = places.link(area.address);
        if (!target) {
            continue;
        }
        append(areas, "<area shape=\"", area.shape, "\"");
        if (area.shape != "default") {
            append(areas, " coords=\"", area.corners, "\"");
        }
        append(areas, " href=\"", escapedAttribute(*target), "\" alt=\"",
               escapedAttribute(area.words.empty() ? *target : area.words), "\"/>");
    }
    return areas;
}

ImageMaps::Strict ImageMaps::of(const text::HtmlReader& picture, MarkupPlaces& places) {
    const Text named = text::lowerCase(attributeOf(picture, "usemap"));
    const auto found = named.starts_with('#') ? maps_.find(named.substr(1)) : maps_.end();
    if (found == maps_.end()) {
        return {};
    }
    Map& map = found->second;
    Strict strict;
    if (!map.isWritten) {
        map.isWritten = true;
        const Text areas = strictAreas(map, places);
        map.name = areas.empty() ? Text() : places.newName();
        strict.map = areas.empty() ? Text() : "<map name=\"" + map.name + "\">" + areas + "</map>";
    }
    strict.attribute = map.name.empty() ? Text() : " usemap=\"#" + map.name + "\"";
    return strict;
}

} // namespace book
