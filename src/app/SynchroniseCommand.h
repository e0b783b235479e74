#pragma once

#include "app/CommandHost.h"
#include "app/LastReport.h"
#include "app/ProjectSession.h"
#include "import/Synchroniser.h"

namespace app {

/// Takes texts back that were edited in pages, and tells of conflicts.
class SynchroniseCommand {
public:
    /// Nothing is owned.
    SynchroniseCommand(CommandHost& host, model::Project& project, const ProjectSession& session,
                       LastReport& lastReport);

    /// Asks for a file beside the pages' folder.
    void synchronise();

private:
    std::optional<std::filesystem::path> chooseFile();
    void synchroniseWith(const std::filesystem::path& pageFolder);
    bool tellConflicts(const importer::Synchronisation& result);
    bool wantsReport(std::size_t conflicts);

    CommandHost& host_;
    model::Project& project_;
    const ProjectSession& session_;
    LastReport& lastReport_;
};

} // namespace app
