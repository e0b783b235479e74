#pragma once

#include <memory>

#include "model/FileFailure.h"
#include "model/Project.h"
#include "web/SiteList.h"

namespace web {

struct SiteRequest {
    std::filesystem::path folder;        ///< a full path; made where it is missing
    std::filesystem::path programFolder; ///< has the program's pictures
    bool isClean = false;                ///< what earlier runs wrote is removed first

    /// Of the folder, where somebody has begun to read it while the project was loaded.
    std::shared_ptr<const SiteList> list = nullptr;
};

struct SiteReport {
    text::Text text; ///< as shown to the author; no line break at its end
    model::FileFailures failures;
};

/// Why a site cannot be in this folder, with the folder; nothing when it can.
std::optional<model::FileFailure> siteFolderFault(const std::filesystem::path& folder,
                                                  const model::Project& project);

/// The page at which a reader begins.
std::filesystem::path frontPage(const std::filesystem::path& folder);

/// Writes a web site for a project with at least one topic. Context values and file names are
/// repaired as for the help files, but the project stays as it is. Goes on where a file cannot be
/// made, and collects such failures.
SiteReport generateSite(const model::Project& project, const SiteRequest& request);

} // namespace web
