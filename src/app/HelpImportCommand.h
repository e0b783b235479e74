#pragma once

#include <deque>
#include <filesystem>
#include <memory>
#include <vector>

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

    /// Opens the dialog with the choice, or says why it cannot be: for each help, then for all
    /// pages together, in the order of their names. The next one comes once nothing more is to be
    /// said of the one before.
    void open(const std::vector<std::filesystem::path>& helps,
              std::vector<std::filesystem::path> pages);

    static bool takes(const std::filesystem::path& file);

private:
    void goOn();
    void openNext();
    std::unique_ptr<importer::HelpSource> openHelp(const std::filesystem::path& file);
    std::unique_ptr<importer::HelpSource> openPages();
    void choose(std::unique_ptr<importer::HelpSource> source, ui::HelpContext help);
    bool hasFolder();
    void import(const importer::HelpImportChoice& choice);
    void showReport(const importer::HelpImportOutcome& outcome);

    CommandHost& host_;
    model::Project& project_;
    ProjectSession& session_;
    std::deque<std::filesystem::path> waitingHelps_;
    std::vector<std::filesystem::path> waitingPages_;
    std::unique_ptr<importer::frmHelpImport> dialog_;
    std::unique_ptr<importer::frmImportReport> report_;
};

} // namespace app
