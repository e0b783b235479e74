#pragma once

#include "app/CommandHost.h"
#include "app/ProjectSession.h"
#include "import/forms/frmHelpImport.h"
#include "import/forms/frmImportReport.h"
#include "ui/HelpContext.h"

namespace app {

/// Takes topics from a compiled help or a workshop's project into the project: the choice, the
/// import and its report.
class HelpImportCommand {
public:
    /// Nothing is owned.
    HelpImportCommand(CommandHost& host, model::Project& project, ProjectSession& session);

    // Each opens the dialog with the choice, or says why it cannot be.
    void open(const std::filesystem::path& file);
    void openPages(const std::vector<std::filesystem::path>& files);

    static bool takes(const std::filesystem::path& file);

private:
    void choose(std::unique_ptr<importer::HelpSource> source, ui::HelpContext help);
    bool hasFolder();
    void import(const importer::HelpImportChoice& choice);
    void showReport(const importer::HelpImportOutcome& outcome);

    CommandHost& host_;
    model::Project& project_;
    ProjectSession& session_;
    std::unique_ptr<importer::frmHelpImport> dialog_;
    std::unique_ptr<importer::frmImportReport> report_;
};

} // namespace app
