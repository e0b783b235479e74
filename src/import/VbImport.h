#pragma once

#include "import/ImportOutcome.h"

namespace importer {

/// Appends an overview of a Visual Basic 6 project, where the outline is empty, and a topic for
/// each of its forms that has a caption, with links to those it shows. The help project takes over
/// the name. Forms that cannot be read are skipped.
ImportOutcome importVbProject(model::Project& project, const std::filesystem::path& projectFile);

/// The command's title, for its file dialog and messages.
inline constexpr text::TextView vbImportTitle = "Create Help Topics From VB Project Files";

} // namespace importer
