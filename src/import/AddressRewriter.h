#pragma once

#include <functional>
#include <optional>

#include "text/Text.h"

namespace importer {

/// An address as it stands in HTML.
struct FoundAddress {
    text::TextView tag;       ///< in small letters
    text::TextView attribute; ///< likewise
    text::Text address;       ///< references resolved, without blanks around it
};

/// What is to stand in its place; nothing where it stays as it is.
using NewAddress = std::function<std::optional<text::Text>(const FoundAddress&)>;

/// HTML with other addresses. Those in lists of related topics, in pictures' sets of sources and in
/// style count, too. Everything else stays byte for byte.
text::Text withNewAddresses(text::TextView html, const NewAddress& newAddress);

/// The same of a style sheet: its "url(...)".
text::Text withNewUrls(text::TextView css, const NewAddress& newAddress);

} // namespace importer
