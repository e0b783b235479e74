#pragma once

#include <map>
#include <vector>

#include "book/StrictMarkup.h"
#include "text/HtmlReader.h"

namespace book {

/// The pictures of a text that lead to several places: what its maps say, wherever they stand in
/// it.
class ImageMaps {
public:
    explicit ImageMaps(text::TextView html);

    /// For the tag of a picture: the attribute that names its map, with a blank before it, and for
    /// the first picture of a map that, to stand behind the picture. Empty texts where it has none,
    /// or one without areas that lead anywhere.
    struct Strict {
        text::Text attribute;
        text::Text map;
    };
    Strict of(const text::HtmlReader& picture, MarkupPlaces& places);

private:
    struct Area {
        text::Text shape;
        text::Text corners;
        text::Text address; ///< with references, as it stands
        text::Text words;
    };

    struct Map {
        std::vector<Area> areas;
        bool isWritten = false;
        text::Text name; ///< in the book; empty for one that leads nowhere
    };

    static text::Text strictAreas(const Map& map, MarkupPlaces& places);

    std::map<text::Text, Map> maps_; ///< by their names in small letters
};

} // namespace book
