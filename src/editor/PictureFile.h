#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "editor/Passage.h"

/// Pictures on their way into the project's picture folder.
namespace editor {

/// What a file dialog lists as pictures: all kinds that browsers show.
inline constexpr TextView picturePatterns =
    "*.gif;*.jpg;*.bmp;*.jpeg;*.png;*.svg;*.webp;*.avif;*.apng;*.ico";

/// Larger files are no pictures for a help.
inline constexpr std::size_t largestPicture = std::size_t(64) << 20U;

/// Whether a file's name says that it is a picture.
bool hasPictureName(const std::filesystem::path& file);

/// The ending that the bytes of a picture should have as a file, by what they are; empty for what
/// browsers do not show as a picture.
Text pictureEnding(std::string_view bytes);

struct PictureSize {
    int width;
    int height;
    bool operator==(const PictureSize&) const = default;
};

/// In pixels, from a picture's own head; nothing where that does not tell.
std::optional<PictureSize> pictureSize(std::string_view bytes);

/// What a "data:" address holds, if it is packed as pictures are.
std::string bytesOfDataAddress(TextView address);

/// A name without what pages and file systems have a use for; "picture" where nothing is left.
Text goodPictureName(TextView name);

/// Words for a picture, made of its file name.
Text pictureWords(TextView fileName);

/// A picture of the project's folder in a body, with its size where that is known. The text for
/// those who do not see it is selected.
Passage insertPicture(Passage passage, TextView fileName, std::optional<PictureSize> size,
                      TextView alternative);

/// The caret behind a picture's tag, with nothing selected, when it stands in the text for those
/// who do not see the picture. Nothing elsewhere.
std::optional<Passage> behindPicture(Passage passage);

} // namespace editor
