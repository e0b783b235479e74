#include "book/BookPictures.h"

#include <string>

#include "platform/Files.h"

namespace book {

namespace fs = std::filesystem;
using text::Text;

namespace {

struct PictureKind {
    std::string_view start;
    const char* ending;
    const char* mediaType;
};

/// What every reader of books shows.
constexpr PictureKind kinds[] = {
    {"\x89PNG\r\n\x1A\n", ".png", "image/png"},
    {"\xFF\xD8\xFF", ".jpg", "image/jpeg"},
    {"GIF87a", ".gif", "image/gif"},
    {"GIF89a", ".gif", "image/gif"},
};

} // namespace

fs::path BookPictures::find(std::span<const Text> places) {
    for (const Text& place : places) {
        if (auto found = files_.find(place)) {
            return std::move(found->file);
        }
    }
    return {};
}

const BookPicture* BookPictures::want(std::span<const Text> places, const char*& problem) {
    const fs::path file = find(places);
    if (file.empty()) {
        problem = "is no file in the project's folder";
        return nullptr;
    }
    if (const auto known = known_.find(file); known != known_.end() && known->second != nullptr) {
        return known->second;
    }
    return known_[file] = add(file, problem);
}

const BookPicture* BookPictures::add(const fs::path& file, const char*& problem) {
    constexpr std::size_t longestStart = 8;
    std::string start;
    if (platform::readPart(file, start, 0, longestStart)) {
        problem = "cannot be read";
        return nullptr;
    }
    for (const PictureKind& kind : kinds) {
        if (start.starts_with(kind.start)) {
            const Text name = "p" + std::to_string(pictures_.size() + 1) + kind.ending;
            return &pictures_.emplace_back(BookPicture{name, file, kind.mediaType});
        }
    }
    problem = "is none of the kinds of pictures that books can show: GIF, JPEG and PNG";
    return nullptr;
}

} // namespace book
