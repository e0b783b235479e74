#pragma once

#include <filesystem>
#include <optional>

#include "text/FileFinder.h"
#include "text/Text.h"

namespace generate {

/// The author's own files that texts name. Only what lies in the project's folder is found: a
/// project from elsewhere must not choose what is published.
class OwnFiles {
public:
    /// A project without a file has no folder. `programFolder` has the pictures that a generation
    /// copies, for projects that name them without having them.
    OwnFiles(const std::filesystem::path& projectFile, std::filesystem::path programFolder);

    struct Found {
        text::Text place; ///< as it is spelt in the folder, which may differ in letter case
        std::filesystem::path file;
    };
    /// The file at a place from the project's folder; nothing when there is none.
    std::optional<Found> find(const text::Text& place);

private:
    std::filesystem::path project_;
    std::filesystem::path folder_;
    std::filesystem::path programFolder_;
    text::FileFinder files_;
};

} // namespace generate
