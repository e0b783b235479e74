#include "editor/forms/Pasting.h"

#include <algorithm>

#include "editor/Escapes.h"
#include "editor/MarkUp.h"
#include "editor/PictureFile.h"
#include "editor/forms/TextChange.h"
#include "editor/forms/dlgPictureName.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "ui/Prompter.h"

namespace editor {

namespace fs = std::filesystem;

ProjectPictures Pasting::pictures() const {
    return {project_.hasFile() ? project_.projectPath().parent_path() : fs::path(),
            project_.options().codePage()};
}

bool Pasting::takes(const std::vector<fs::path>& files) const {
    return std::any_of(files.begin(), files.end(), hasPictureName);
}

bool Pasting::insert(const ui::Incoming& incoming) {
    if (takes(incoming.files)) {
        insertFiles(incoming.files);
        return true;
    }
    if (!incoming.picture.empty() && incoming.text.empty()) {
        if (hasFolder()) {
            const Text& title = project_.outline().at(project_.currentIndex()).title;
            insertPicture(pictures().freeName(title, incoming.picture), incoming.picture, title);
        }
        return true;
    }
    if (incoming.html.empty() || !incoming.files.empty()) {
        return false;
    }
    ProjectPictures targets = pictures();
    const auto markUp = pastedMarkUp(incoming.html, targets);
    return markUp && changeText(body_, [&markUp](Passage passage) {
               return editor::insert(std::move(passage), *markUp);
           });
}

void Pasting::insertAsText(const ui::Incoming& incoming) {
    if (!incoming.text.empty()) {
        changeText(body_, [&incoming](Passage passage) {
            return editor::insert(std::move(passage), escapedText(incoming.text));
        });
    }
}

bool Pasting::hasFolder() {
    if (!project_.hasFile()) {
        ui::Prompter::current().ask(
            &window_, {"Pictures are kept beside the project. Save the project first, so that it "
                       "has a folder.",
                       "Insert Graphic", ui::Buttons::ok, ui::QuestionIcon::information});
    }
    return project_.hasFile();
}

void Pasting::insertFiles(const std::vector<fs::path>& files) {
    if (!hasFolder()) {
        return;
    }
    for (const fs::path& file : files) {
        if (!hasPictureName(file)) {
            continue;
        }
        std::string bytes;
        if (platform::readFile(file, bytes, largestPicture) || pictureEnding(bytes).empty()) {
            ui::Prompter::current().ask(
                &window_, {"\"" + text::displayText(file.filename())
                               + "\" cannot be read as a picture that browsers show.",
                           "Insert Graphic", ui::Buttons::ok, ui::QuestionIcon::exclamation});
            continue;
        }
        if (&file != &files.front()) { // not over the one before
            changeText(body_, behindPicture);
        }
        const Text stem = text::displayText(file.stem());
        insertPicture(askForName(stem, bytes), bytes, pictureWords(stem));
    }
}

/// With no name nothing happens.
void Pasting::insertPicture(TextView name, std::string_view bytes, TextView alternative) {
    if (name.empty()) {
        return;
    }
    if (const std::error_code error = pictures().store(name, bytes)) {
        ui::Prompter::current().ask(
            &window_,
            {"The picture cannot be put into the project's folder: " + error.message() + ".",
             "Insert Graphic", ui::Buttons::ok, ui::QuestionIcon::exclamation});
        return;
    }
    changeText(body_, [&](Passage passage) {
        return editor::insertPicture(std::move(passage), name, pictureSize(bytes), alternative);
    });
}

/// The picture's own name, or the one that the author gives it where another one has that; empty
/// when it is not to be copied.
Text Pasting::askForName(TextView stem, std::string_view bytes) {
    const ProjectPictures folder = pictures();
    const Text ending = "." + pictureEnding(bytes);
    Text name = folder.nameOf(stem) + ending;
    while (!name.empty() && folder.isTaken(name, bytes)) {
        dlgPictureName dialog(window_, name, folder.freeName(stem, bytes));
        dialog.run();
        name = dialog.name;
        if (!name.empty()) {
            const bool whole = name.ends_with(ending);
            name = folder.nameOf(name.substr(0, name.size() - (whole ? ending.size() : 0)));
            name += ending;
        }
    }
    return name;
}

} // namespace editor
