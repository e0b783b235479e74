#pragma once

#include "book/BookTexts.h"

namespace book {

/// The documentation of a project with at least one topic as a page for a printer: the table of
/// contents has page numbers, and all links lead to places on the page.
class PrintPage {
public:
    /// The project must outlive this.
    PrintPage(const model::Project& project, const std::filesystem::path& programFolder);

    /// The page with the numbers of the topics' pages; the place of numbers stays free when there
    /// are none yet.
    text::Text html(const std::vector<int>& pageNumbers) const;

    /// The bytes of a picture, by its address on the page; nothing when it cannot be read.
    std::optional<std::string> picture(const text::Text& address) const;

    /// The name of the place on the page where a topic begins.
    static text::Text place(int position) { return "t" + std::to_string(position); }

    const text::Text& title() const { return title_; }
    Notes takeNotes() { return std::move(notes_); }

private:
    text::Text contents(const std::vector<int>& pageNumbers) const;
    text::Text topics();

    const model::Project& project_;
    Notes notes_;
    BookPictures pictures_;
    BookTexts texts_;
    text::Text title_;
    text::Text style_; ///< the author's
    text::Text copyright_;
    text::Text topics_;
};

} // namespace book
