#pragma once

#include <memory>

#include "app/GenerateCommands.h"
#include "app/OutputPlaces.h"
#include "app/dlgCompile.h"
#include "help/forms/frmHelp.h"

namespace app {

/// Generates and compiles the project's help, shows how that goes on, and then the help.
class CompileCommand {
public:
    /// Nothing is owned. The settings remember where the help of the last
    /// twenty projects went.
    CompileCommand(CommandHost& host, const model::Project& project, const ProjectSession& session,
                   ui::Settings& settings, GenerateCommands& generation, LastReport& lastReport);

    /// Asks for the file where it is not known yet, and otherwise when told so.
    void compile(bool ask);

private:
    std::filesystem::path output(bool ask);
    void compileTo(const std::filesystem::path& output);
    void start(const std::filesystem::path& workshopFile, const std::filesystem::path& output);
    void showPlace(const workshop::Message& message);
    void openHelp(const std::filesystem::path& file);

    CommandHost& host_;
    const model::Project& project_;
    const ProjectSession& session_;
    ui::Settings& settings_;
    OutputPlaces places_;
    GenerateCommands& generation_;
    LastReport& lastReport_;
    std::unique_ptr<dlgCompile> compilation_; ///< of the last one, as long as it is open
    std::unique_ptr<help::frmHelp> viewer_;   ///< of what was compiled
};

} // namespace app
