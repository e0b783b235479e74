#pragma once

#include <filesystem>

#include "editor/Passage.h"
#include "model/ProjectOptions.h"

namespace editor {

/// The page by which a topic is looked at before it is generated: title, look and body, without
/// links to other topics. `projectFolder` is what "..", the folder above the pages, stands for in
/// paths of pictures, style sheet and background; as it may stand in an attribute, without a slash
/// at its end.
Text previewPage(TextView title, TextView body, const model::ProjectOptions& options,
                 TextView projectFolder);

/// The same for one that is looked at while it is written: whatever slashes, quotes and paths its
/// pictures have, they count from the page folder. `folder` is that of the project.
Text livePage(TextView title, TextView body, const model::ProjectOptions& options,
              const std::filesystem::path& folder);

/// The id of the element that withCaret() puts in.
inline constexpr const char* caretId = "topicsmithCaret";

/// A body with an empty element at the beginning of the paragraph, item, cell or heading that the
/// caret is in; as it is when it has none up to there.
Text withCaret(TextView body, std::size_t caret);

/// A body whose pictures of the project's images folder have the project's folder in their paths.
Text withAbsolutePictures(TextView body, TextView projectFolder);

} // namespace editor
