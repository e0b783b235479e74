#pragma once

#include <functional>
#include <optional>

#include "text/Text.h"

/// Style sheets as authors write them, as readers of books accept them. What is damaged, or has no
/// place in a book, is left out; the rest stays as it is.
namespace book {

/// The address in the book of what a style sheet names; nothing for what is not in it.
using StyleAddress = std::function<std::optional<text::Text>(const text::Text& address)>;

/// Declarations as in a style attribute: separated by semicolons.
text::Text strictDeclarations(text::TextView css, const StyleAddress& address);

/// A whole style sheet. Only rules, and rules for certain media, are kept.
text::Text strictStyleSheet(text::TextView css, const StyleAddress& address);

} // namespace book
