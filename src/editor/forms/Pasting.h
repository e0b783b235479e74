#pragma once

#include "editor/ProjectPictures.h"
#include "model/Project.h"
#include "ui/HtmlBox.h"
#include "ui/Window.h"

namespace editor {

/// What is pasted or dropped into the body of the project's current topic: marked-up text, pictures
/// and files of pictures, which go into the project's folder.
class Pasting {
public:
    /// Nothing is owned.
    Pasting(ui::Window& window, ui::HtmlBox& body, const model::Project& project)
        : window_(window), body_(body), project_(project) {}

    /// Puts it in as one step; false where there is nothing but plain text, which the box enters.
    bool insert(const ui::Incoming& incoming);

    /// The text alone, with references for what would be mark-up.
    void insertAsText(const ui::Incoming& incoming);

    /// Whether there is a picture among the files, and a folder for it.
    bool takes(const std::vector<std::filesystem::path>& files) const;

private:
    ProjectPictures pictures() const;
    bool hasFolder();
    void insertFiles(const std::vector<std::filesystem::path>& files);
    void insertPicture(text::TextView name, std::string_view bytes, text::TextView alternative);
    Text askForName(text::TextView stem, std::string_view bytes);

    ui::Window& window_;
    ui::HtmlBox& body_;
    const model::Project& project_;
};

} // namespace editor
