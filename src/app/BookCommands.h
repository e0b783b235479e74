#pragma once

#include <filesystem>

#include "app/CommandHost.h"
#include "app/LastReport.h"
#include "app/ProjectSession.h"
#include "book/BookTexts.h"

namespace app {

/// Makes books of the project, for readers of electronic ones and for printers, and reports what
/// they lack.
class BookCommands {
public:
    /// Nothing is owned. The program's pictures are taken from the folder.
    BookCommands(CommandHost& host, const model::Project& project, const ProjectSession& session,
                 LastReport& lastReport, std::filesystem::path programFolder);

    void generateEpub();
    void generatePdf();

private:
    struct Kind {
        const char* title;
        const char* question;
        const char* filter;
        const char* extension;
        ui::HelpContext help;
        std::function<book::BookOutcome(const std::filesystem::path&)> write;
    };

    void generate(const Kind& kind);
    void report(const Kind& kind, const std::filesystem::path& file,
                const book::BookOutcome& outcome);

    CommandHost& host_;
    const model::Project& project_;
    const ProjectSession& session_;
    LastReport& lastReport_;
    std::filesystem::path programFolder_;
};

} // namespace app
