#pragma once

#include "app/GenerateCommands.h"
#include "app/OutputPlaces.h"

namespace app {

/// Makes a web site of the project, shows the report, and opens the site when the author wants it.
class WebSiteCommand {
public:
    /// Nothing is owned. The settings remember where the sites of
    /// the last twenty projects went.
    WebSiteCommand(CommandHost& host, const model::Project& project, const ProjectSession& session,
                   ui::Settings& settings, GenerateCommands& generation, LastReport& lastReport,
                   std::filesystem::path programFolder);

    /// Asks for the folder where it is not known yet, and otherwise when told so.
    void generate(bool ask);

private:
    std::filesystem::path folder(bool ask);
    void generateInto(const std::filesystem::path& folder);

    CommandHost& host_;
    const model::Project& project_;
    const ProjectSession& session_;
    OutputPlaces places_;
    GenerateCommands& generation_;
    LastReport& lastReport_;
    std::filesystem::path programFolder_;
};

} // namespace app
