#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "app/CommandHost.h"
#include "app/HelpImportCommand.h"
#include "app/LastReport.h"
#include "app/ProjectSession.h"
#include "import/forms/frmImport.h"
#include "import/forms/frmVbImport.h"

namespace app {

/// Takes topics from files of other kinds into the project, and tells what came of it.
class ImportCommands {
public:
    /// Nothing is owned. The settings remember the folder.
    ImportCommands(CommandHost& host, model::Project& project, ProjectSession& session,
                   ui::Settings& settings, LastReport& lastReport);

    // Ask for the file.
    void importText();
    void importVbProject();
    void importHelp();   ///< of other tools, with a dialog that stays open; asks for several
    void importPages();  ///< in Markdown or HTML, with the same dialog; asks for several
    void importTopics(); ///< of another project of ours, with a dialog that stays open

    /// Imports those of the files that are texts, Visual Basic projects or help, in their order,
    /// and pages together.
    void importDropped(const std::vector<std::filesystem::path>& files);
    static bool takes(const std::filesystem::path& file);

private:
    std::filesystem::path folder() const;
    void rememberFolder(const std::filesystem::path& file);
    std::vector<std::filesystem::path> choose(ui::FileQuestion::Kind kind, text::TextView title,
                                              const char* pattern, const char* filter);
    std::optional<std::filesystem::path> chooseFile(text::TextView title, const char* pattern,
                                                    const char* filter);
    /// Remembers their folder.
    std::vector<std::filesystem::path> chooseFiles(text::TextView title, const char* pattern,
                                                   const char* filter);
    void importTextFile(const std::filesystem::path& file);
    void importVbForms(const std::filesystem::path& file);
    void importVbFile(const std::filesystem::path& file);
    void openDialog(const std::filesystem::path& file);
    void finish(const importer::ImportOutcome& outcome);

    CommandHost& host_;
    model::Project& project_;
    const ProjectSession& session_;
    ui::Settings& settings_;
    LastReport& lastReport_;
    HelpImportCommand helpImport_;
    std::unique_ptr<importer::frmImport> dialog_;
};

} // namespace app
