#include "book/BookPictures.h"

#include <algorithm>

#include "book/Bitmap.h"
#include "book/StrictSvg.h"
#include "platform/Files.h"
#include "text/Unicode.h"

namespace book {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

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
    const auto [known, isNew] = known_.try_emplace(file);
    if (isNew) {
        known->second.picture = add(file, known->second.problem);
    }
    problem = known->second.problem;
    return known->second.picture;
}

const BookPicture* BookPictures::add(const fs::path& file, const char*& problem) {
    constexpr std::size_t longestStart = 16;
    std::string start;
    if (platform::readPart(file, start, 0, longestStart)) {
        problem = "cannot be read";
        return nullptr;
    }
    for (const PictureKind& kind : kinds) {
        if (start.starts_with(kind.start)) {
            return append({{}, file, kind.mediaType, {}}, kind.ending);
        }
    }
    const bool isWebP =
        start.starts_with("RIFF")
        && TextView(start).substr(std::min<std::size_t>(start.size(), 8)).starts_with("WEBP");
    if (isWebP && shape_ == BookShape::onePage) {
        return append({{}, file, "image/webp", {}}, ".webp");
    }
    problem = isWebP ? "is a WebP picture, which many readers of books do not show; save it as "
                       "PNG or JPEG"
                     : "is none of the kinds of pictures that books can show: BMP, GIF, JPEG, PNG "
                       "and SVG";
    return isWebP ? nullptr : addOther(file, start, problem);
}

/// What browsers show, and readers of books only when it is made another one.
const BookPicture* BookPictures::addOther(const fs::path& file, TextView start,
                                          const char*& problem) {
    constexpr std::uint64_t largest = std::uint64_t(256) << 20U;
    constexpr std::uint64_t largestDrawing = std::uint64_t(16) << 20U;
    constexpr TextView mark = "\xEF\xBB\xBF";
    const TextView letters = start.substr(start.starts_with(mark) ? mark.size() : 0);
    const bool isBitmap = start.starts_with("BM");
    std::string bytes;
    if ((!isBitmap && !text::trimmed(letters).starts_with('<'))
        || platform::readFile(file, bytes, isBitmap ? largest : largestDrawing)
        || (!isBitmap && bytes.find("<svg") == std::string::npos)) {
        return nullptr;
    }
    if (shape_ == BookShape::onePage) {
        return isBitmap ? append({{}, file, "image/bmp", {}}, ".bmp")
                        : append({{}, file, "image/svg+xml", {}}, ".svg");
    }
    if (isBitmap) {
        problem = "is a BMP picture that is damaged, or of a rare kind; save it as PNG";
        auto png = pngOfBitmap(bytes);
        return png ? append({{}, file, "image/png", std::move(*png)}, ".png") : nullptr;
    }
    problem =
        "is an SVG picture that is not in UTF-8 or has entities of its own; save it otherwise, "
        "or as PNG";
    const bool isPlain = text::isUtf8(bytes) && bytes.find("<!ENTITY") == std::string::npos;
    Text svg = isPlain ? strictSvg(bytes) : Text();
    return svg.empty() ? nullptr : append({{}, file, "image/svg+xml", std::move(svg)}, ".svg");
}

const BookPicture* BookPictures::append(BookPicture picture, const char* ending) {
    picture.name = "p" + std::to_string(pictures_.size() + 1) + ending;
    return &pictures_.emplace_back(std::move(picture));
}

} // namespace book
