#pragma once

#include <functional>
#include <vector>

#include "import/ImportOutcome.h"
#include "import/VbForm.h"

namespace importer {

/// A form that a Visual Basic 6 project names.
struct VbProjectForm {
    text::Text path; ///< as it stands in the project's file; may be empty
    VbForm form;
    std::error_code readError;
};

/// A Visual Basic 6 project with its forms, in the order of its file.
struct VbProject {
    std::filesystem::path file;
    std::error_code readError;
    std::optional<text::Text> title;
    std::vector<VbProjectForm> forms;
};

VbProject readVbProject(const std::filesystem::path& projectFile, const text::CodePage& codePage);

/// How an author may know a form: its caption, or the name of its object where it has none.
text::Text titleOf(const VbProjectForm& form);

/// Whether the outline has a topic that an import of the form would make again.
bool isThere(const VbProjectForm& form, const model::Project& project);

/// Appends an overview of a Visual Basic 6 project, where the outline is empty, and a topic for
/// each of its forms that is wanted, by its place from 0, with links to those it shows. The help
/// project takes over the name. Wanted forms that cannot be read are skipped.
ImportOutcome importVbForms(model::Project& project, const VbProject& source,
                            const std::function<bool(std::size_t form)>& isWanted);

/// The same with all forms that have a caption.
ImportOutcome importVbProject(model::Project& project, const std::filesystem::path& projectFile);

/// The command's title, for its file dialog and messages.
inline constexpr text::TextView vbImportTitle = "Create Help Topics From VB Project Files";

} // namespace importer
