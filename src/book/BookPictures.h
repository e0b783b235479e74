#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <span>
#include <string>

#include "generate/OwnFiles.h"
#include "text/Text.h"

namespace book {

/// How a book is made up.
enum class BookShape {
    pages,  ///< each topic is a page of its own, for readers of books
    onePage ///< all stand on one, below each other, for a browser to print
};

/// A picture of a book.
struct BookPicture {
    text::Text name; ///< in the book: letters and digits of ASCII and an ending
    std::filesystem::path file;
    const char* mediaType; ///< as its first bytes have it, whatever it is called
    std::string converted; ///< what the book has in place of the file; empty for the file's bytes
};

/// The pictures that texts name.
class BookPictures {
public:
    /// The paths are those of the files. A book for readers has only what all of them show, and
    /// other pictures converted where that can be done; a browser shows what is there.
    BookPictures(const std::filesystem::path& projectFile, std::filesystem::path programFolder,
                 BookShape shape)
        : files_(projectFile, std::move(programFolder)), shape_(shape) {}

    /// The picture at the first of some places from the project's folder that has a file; null,
    /// with a reason, for none that a book can show.
    const BookPicture* want(std::span<const text::Text> places, const char*& problem);

    /// A file of the project's at one of the places; empty when there is none.
    std::filesystem::path find(std::span<const text::Text> places);

    BookShape shape() const { return shape_; }

    /// Those that were wanted, in that order.
    const std::deque<BookPicture>& all() const { return pictures_; }

private:
    struct Known {
        const BookPicture* picture = nullptr;
        const char* problem = nullptr; ///< of one that no book can show
    };

    const BookPicture* add(const std::filesystem::path& file, const char*& problem);
    const BookPicture* addOther(const std::filesystem::path& file, text::TextView start,
                                const char*& problem);
    const BookPicture* append(BookPicture picture, const char* ending);

    generate::OwnFiles files_;
    BookShape shape_;
    std::deque<BookPicture> pictures_;
    std::map<std::filesystem::path, Known> known_; ///< all files that were asked for
};

} // namespace book
