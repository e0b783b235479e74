#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <span>

#include "generate/OwnFiles.h"
#include "text/Text.h"

namespace book {

/// A picture of a book.
struct BookPicture {
    text::Text name; ///< in the book: letters and digits of ASCII and an ending
    std::filesystem::path file;
    const char* mediaType; ///< as its first bytes have it, whatever it is called
};

/// The pictures that texts name.
class BookPictures {
public:
    /// As for the files.
    BookPictures(const std::filesystem::path& projectFile, std::filesystem::path programFolder)
        : files_(projectFile, std::move(programFolder)) {}

    /// The picture at the first of some places from the project's folder that has a file; null,
    /// with a reason, for none that a book can show.
    const BookPicture* want(std::span<const text::Text> places, const char*& problem);

    /// A file of the project's at one of the places; empty when there is none.
    std::filesystem::path find(std::span<const text::Text> places);

    /// Those that were wanted, in that order.
    const std::deque<BookPicture>& all() const { return pictures_; }

private:
    const BookPicture* add(const std::filesystem::path& file, const char*& problem);

    generate::OwnFiles files_;
    std::deque<BookPicture> pictures_;
    std::map<std::filesystem::path, const BookPicture*> known_;
};

} // namespace book
