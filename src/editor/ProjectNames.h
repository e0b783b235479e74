#pragma once

#include <filesystem>
#include <functional>

#include "editor/Completion.h"
#include "model/Project.h"

namespace editor {

/// What a body of a project can refer to: its topics' pages, generated or not, and the pictures in
/// its folder.
class ProjectNames : public KnownNames {
public:
    /// `body` gives the text of the current topic as it is being written. The project is not owned.
    ProjectNames(const model::Project& project, std::function<Text()> body)
        : project_(project), body_(std::move(body)) {}

    std::vector<Text> pages() override;
    std::vector<Text> pictures() override;
    std::vector<Text> anchors(TextView page) override;

private:
    const model::Project& project_;
    std::function<Text()> body_;
};

} // namespace editor
