#include <algorithm>

#include "app/frmMain.h"
#include "generate/WorkshopName.h"
#include "import/EditedPages.h"
#include "import/ImportOutcome.h"
#include "import/Synchroniser.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "ui/WaitCursor.h"

// What the main window asks before a generation.
namespace app {

namespace fs = std::filesystem;
using text::Text;
using ui::Prompter;

namespace {

constexpr const char* title = "Generate Help Files";

/// Each page on a line of its own, for a message.
Text lines(const model::FileFailures& pages) {
    constexpr std::size_t shown = 10;
    Text list;
    for (std::size_t i = 0; i < std::min(pages.size(), shown); ++i) {
        text::append(list, text::lineBreak, text::displayText(pages[i].path.filename()), ": ",
                     text::fromUtf8(pages[i].reason));
    }
    if (pages.size() > shown) {
        text::append(list, text::lineBreak, "and ", std::to_string(pages.size() - shown), " more");
    }
    return list;
}

} // namespace

/// Where the help workshop's project is to go; nothing when the author cancelled, or it cannot be
/// there.
std::optional<fs::path> frmMain::chooseWorkshopFile() {
    const auto chosen = Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::save, "Generate Help Workshop Files",
               "Help Workshop Files (*.hhp)|*.hhp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1,
               session_.folder(), generate::proposedWorkshopName(project_.projectPath()), "hhp",
               false}); // what was generated before is always replaced
    if (!chosen) {
        return {};
    }
    const fs::path file = platform::fullPath(*chosen);
    return mayGenerateInto(file, title) ? std::optional(file) : std::nullopt;
}

/// Says why an output file cannot have its name.
bool frmMain::refused(const std::optional<model::FileFailure>& fault, const char* command) {
    if (fault) {
        Prompter::current().tell(
            this, {text::displayText(fault->path.filename()) + ": " + text::fromUtf8(fault->reason),
                   command, text::MessageIcon::exclamation});
    }
    return fault.has_value();
}

/// False, and said so, when the workshop's project cannot have that name; or when the author does
/// not want to lose what was edited in pages.
bool frmMain::mayGenerateInto(const fs::path& workshopFile, const char* command) {
    return !refused(generate::workshopNameFault(workshopFile, project_.projectPath()), command)
           && settleEditedPages(workshopFile.parent_path() / model::pageFolderName);
}

/// False when the generation is not to be: the author cancelled, or wants the pages' texts, and
/// some could not be taken back.
bool frmMain::settleEditedPages(const fs::path& pageFolder) {
    model::FileFailures edited;
    {
        const ui::WaitCursor busy;
        edited = importer::editedPages(project_.outline(), pageFolder);
    }
    if (edited.empty()) {
        return true;
    }
    const ui::Answer answer = Prompter::current().ask(
        this,
        {importer::counted(edited.size(), "page")
             + " would be overwritten that may hold what the project lacks:\r\n" + lines(edited),
         title, ui::Buttons::yesNoCancel, ui::QuestionIcon::exclamation, "&Synchronize First",
         "&Overwrite"});
    if (answer != ui::Answer::yes || !closeEditor()) {
        return answer == ui::Answer::no;
    }
    {
        const ui::WaitCursor busy;
        importer::synchronise(project_, pageFolder);
        edited = importer::editedPages(project_.outline(), pageFolder);
    }
    if (!edited.empty()) {
        Prompter::current().tell(this, {"Nothing was generated, because "
                                            + importer::counted(edited.size(), "page")
                                            + " could not be taken back:\r\n" + lines(edited),
                                        title, text::MessageIcon::exclamation});
    }
    return edited.empty();
}

} // namespace app
