#pragma once

#include "editor/Passage.h"
#include "model/ProjectOptions.h"

namespace editor {

/// The page by which a topic is looked at before it is generated: title, look and body, without
/// links to other topics. `projectFolder` is what "..", the folder above the pages, stands for in
/// paths of pictures, style sheet and background; as it may stand in an attribute, without a slash
/// at its end.
Text previewPage(TextView title, TextView body, const model::ProjectOptions& options,
                 TextView projectFolder);

/// A body whose pictures of the project's images folder have the project's folder in their paths.
Text withAbsolutePictures(TextView body, TextView projectFolder);

} // namespace editor
