#pragma once

#include <filesystem>

#include "app/CommandHost.h"
#include "app/LastReport.h"
#include "app/ProjectSession.h"
#include "generate/GenerationReport.h"

namespace app {

/// Makes help files and documentation of the project, after what has to be asked; compiling begins
/// with the same steps.
class GenerateCommands {
public:
    /// Nothing is owned. Pictures are taken from the folder.
    GenerateCommands(CommandHost& host, model::Project& project, ProjectSession& session,
                     LastReport& lastReport, ui::Settings& settings,
                     std::filesystem::path programFolder);

    void generateHelp();

    /// Where this project's help was generated last, without asking for the place.
    void generateAgain();
    bool canGenerateAgain() const { return !lastPlace().empty(); }
    void generateDocumentation();

    // The steps of a command that generates; its title stands over the boxes.

    /// What has to be so before it.
    Precondition precondition(const char* command) const;

    /// Says why an output file cannot have its name; false when it can.
    bool refuses(const std::optional<model::FileFailure>& fault, const char* command);

    /// False, and said so, when the workshop's project cannot have that name; or when the author
    /// does not want to lose what was edited in pages.
    bool mayGenerateInto(const std::filesystem::path& workshopFile, const char* command);

    /// Generates, and returns the report, which is also shown as far as it is when the pages
    /// follow.
    generate::GenerationReport generateInto(const std::filesystem::path& workshopFile,
                                            const char* command,
                                            const std::function<void(const text::Text&)>& show);

private:
    std::optional<std::filesystem::path> chooseWorkshopFile();
    std::filesystem::path lastPlace() const;
    std::optional<std::filesystem::path> chooseDocument();
    void showGenerated(const std::filesystem::path& workshopFile);
    bool settleEditedPages(const std::filesystem::path& pageFolder);

    CommandHost& host_;
    model::Project& project_;
    ProjectSession& session_;
    LastReport& lastReport_;
    ui::Settings& settings_;
    std::filesystem::path programFolder_;
};

} // namespace app
