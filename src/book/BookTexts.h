#pragma once

#include <map>
#include <set>
#include <vector>

#include "book/BookPictures.h"
#include "book/StrictMarkup.h"
#include "generate/PageTargets.h"
#include "model/FileFailure.h"
#include "model/Project.h"

namespace book {

/// Something that the book lacks, or that is another in it than in the project.
struct Note {
    int position = 0; ///< of the topic; 0 for what concerns all
    text::Text what;
};
using Notes = std::vector<Note>;

/// What came of a book that was to be written.
struct BookOutcome {
    Notes notes;
    model::FileFailures failures; ///< empty when it was written
};

/// The notes as the author reads them, a line each.
std::vector<text::Text> noteLines(const Notes& notes, const model::Project& project);

/// The texts of a project's topics as strict mark-up, with addresses as they are in the book.
class BookTexts : public MarkupPlaces {
public:
    /// Nothing is owned. Notes go to the list.
    BookTexts(const model::Project& project, BookPictures& pictures, Notes& notes);

    /// The title of a topic as words in a heading, and as text in one line; never empty.
    text::Text heading(int position);
    static text::Text plainTitle(const model::Topic& topic);

    /// What stands below the heading. On pages of their own these have the lists of topics below
    /// and the copyright, too.
    text::Text contents(int position);

    /// HTML that the options hold; its addresses count from the page folder.
    text::Text optionText(const text::Text& html);

    /// The author's style sheet as books accept it; empty for none.
    text::Text styleSheet();

    /// Where a topic begins: the name of its page, or with "#" of its place.
    text::Text address(int position) const;

    std::optional<text::Text> link(text::TextView address) override;
    std::optional<text::Text> picture(text::TextView address) override;
    text::Text id(text::TextView name) override;
    bool isRightToLeft() const override;
    text::Text newName() override { return "m" + std::to_string(++newNames_); }

private:
    using Anchor = std::pair<int, text::Text>; ///< a topic, and a name in small letters

    std::vector<text::Text> pieces(int position) const;
    void collectAnchors(int position);
    text::Text linkToPage(const generate::AddressTarget& target, const text::Text& address);
    void note(const text::Text& address, text::TextView problem);

    const model::Project& project_;
    BookPictures& pictures_;
    BookShape shape_;
    Notes& notes_;
    generate::PageTargets addresses_;
    std::map<Anchor, text::Text> anchors_; ///< and their names in the book
    std::set<text::Text> written_;         ///< of those, the ones that stand in the book already
    std::set<std::pair<int, text::Text>> noted_;
    int position_ = 0; ///< of the topic whose text is made strict
    std::size_t newNames_ = 0;
};

} // namespace book
