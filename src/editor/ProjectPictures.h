#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "editor/PastedHtml.h"
#include "text/CodePage.h"

namespace editor {

/// The picture folder of a project, and what goes into it.
class ProjectPictures : public PasteTargets {
public:
    /// Names that are made have letters of the code page only. A project without a folder, which is
    /// empty, takes nothing.
    ProjectPictures(std::filesystem::path projectFolder, const text::CodePage& codePage);

    /// The name under which a picture is there already, or a free one made of the wanted one.
    Text freeName(TextView wanted, std::string_view bytes) const;

    /// Whether another picture than this has a name.
    bool isTaken(TextView name, std::string_view bytes) const;

    /// Puts it into the folder, which is made if it is missing; a picture that is there stays.
    std::error_code store(TextView name, std::string_view bytes);

    /// Just the name where a file lies in the folder itself; empty otherwise.
    Text nameInFolder(const std::filesystem::path& file) const;

    /// A good name in letters that pages can hold.
    Text nameOf(TextView name) const;

    // Of what is pasted: files that are pictures are copied into the folder.
    Text picture(TextView address) override;
    Text page(TextView address) override;

private:
    std::filesystem::path pathOf(TextView name) const;

    std::filesystem::path projectFolder_;
    text::CodePage codePage_;
    std::size_t left_ = std::size_t(256) << 20U; ///< bytes that one text may still bring
};

} // namespace editor
