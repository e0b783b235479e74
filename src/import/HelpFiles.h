#pragma once

#include <filesystem>
#include <map>
#include <optional>

#include "import/HelpSource.h"
#include "model/FileFailure.h"

namespace importer {

/// Puts pictures, style sheets and other files of a help into a project's folder. What lies there
/// already stays: a file with other contents gets another name or folder. Nothing is written
/// outside, whatever a help calls its files.
class HelpFiles {
public:
    /// Neither is owned. `folder` is the project's, a full path.
    HelpFiles(const HelpSource& source, std::filesystem::path folder);

    /// Where a file of the help lies in the project's folder, as in "images/a.png": pictures of
    /// pages in its folder for pictures. Written when first asked for; nothing, and noted, when it
    /// cannot be.
    std::optional<text::Text> place(const text::Text& path);

    /// A file that the import makes itself.
    bool write(const text::Text& place, std::string_view bytes);

    std::size_t written() const { return written_; }
    const model::FileFailures& failures() const { return failures_; }

private:
    struct Part {
        text::Text path;
        text::Text place;
        std::string bytes;
    };

    std::optional<text::Text> placePicture(const text::Text& path);
    std::optional<text::Text> placeWithItsFiles(const text::Text& path);
    static std::uint64_t collected(const std::vector<Part>& parts);
    bool collect(const text::Text& path, std::vector<Part>& parts);
    bool isFree(const text::Text& place, std::string_view bytes);
    bool store(const text::Text& path, const text::Text& place, std::string_view bytes);
    void fail(const text::Text& path, std::string reason);

    const HelpSource& source_;
    std::filesystem::path folder_;
    std::map<text::Text, std::optional<text::Text>> places_; ///< by path
    std::size_t written_ = 0;
    model::FileFailures failures_;
};

/// Why a file of a help is not written under its name; empty when it may be.
text::TextView fileNameFault(text::TextView path);

} // namespace importer
