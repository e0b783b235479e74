#pragma once

#include <optional>
#include <vector>

#include "text/Text.h"

/// Texts with mark-up, in any encoding whose first 128 characters are those of ASCII. Damaged
/// mark-up is read somehow, in time that grows with its length only.
namespace text {

/// Whether a tag, named in small letters, stands within a word without ending it.
bool isInlineTag(TextView lowerName);

/// The level of a heading, 1 to 6, from its tag in small letters; 0 for other tags.
int headingLevel(TextView lowerName);

/// Finds where tags end. It remembers what it has looked for in vain.
class TagEnds {
public:
    /// The text must outlive this.
    explicit TagEnds(TextView text) : text_(text) {}

    /// The ">" of the tag that begins at an offset, which is not less than that of the call before.
    /// One in an attribute's quotes does not count, unless the quotes are never closed. `npos` when
    /// there is none.
    std::size_t of(std::size_t start);

private:
    std::size_t quoteEnd(std::size_t quote);

    TextView text_;
    Text missingQuotes_;
    std::size_t nextEnd_ = 0; ///< the first ">" behind some earlier place
};

/// Takes the texts and tags of HTML one after the other. Comments, and what stands in scripts and
/// style sheets, are passed over; a "<" that begins no tag is text.
class HtmlReader {
public:
    /// The text must outlive the reader and what was taken.
    explicit HtmlReader(TextView html) : html_(html), tagEnds_(html) {}

    /// Goes on to the next one; false at the end.
    bool next();

    bool isText() const { return name_.empty(); }
    Text lowerName() const { return lowerAscii(name_); } ///< of a tag; empty for a text

    /// The text as it stands, with its references. Empty for a tag.
    TextView text() const { return isText() ? piece_ : TextView(); }

    // By the tag's name in small letters, as in "ul".
    bool opens(TextView lowerName) const { return !closing_ && hasName(lowerName); }
    bool closes(TextView lowerName) const { return closing_ && hasName(lowerName); }

    bool closes() const { return closing_; }

    struct Attribute {
        TextView name;
        std::optional<TextView> value; ///< as it stands, without its quotes; nothing without "="
    };
    std::vector<Attribute> attributes() const; ///< of a tag

    /// The same, with the memory of what was taken before.
    void takeAttributes(std::vector<Attribute>& all) const;

    /// The value of a tag's attribute; nothing when the tag has none of that name, empty when it
    /// has no value.
    std::optional<TextView> attribute(TextView lowerName) const;

    /// Where the text or the tag's name stands.
    std::size_t offset() const { return static_cast<std::size_t>(piece_.data() - html_.data()); }

    /// Behind the tag's ">" or the text; behind the contents of a script or a style sheet.
    std::size_t end() const { return position_; }

    /// What was passed over behind the tag that begins a script or a style sheet.
    TextView contents() const { return contents_; }

private:
    bool hasName(TextView lowerName) const;
    bool takeTag();
    void skipComment();
    void skipContents(TextView endTag);

    TextView html_;
    TagEnds tagEnds_;
    std::size_t position_ = 0;
    TextView piece_;
    TextView name_; ///< empty for a text
    TextView contents_;
    bool closing_ = false;
    bool noCommentEnd_ = false; ///< found once, so that damaged texts are not searched again
    Text missingEndTags_;       ///< likewise
};

/// A text as it stands in HTML, between tags or in an attribute's double quotes.
Text escapedHtml(TextView text);

/// Puts the characters of references ("&eacute;", "&#937;") in their places, in UTF-8.
std::string resolvedReferences(std::string_view utf8);

} // namespace text
