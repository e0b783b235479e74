#include "app/BookCommands.h"

#include "app/PdfMaker.h"
#include "app/StatusLine.h"
#include "book/Epub.h"
#include "generate/GeneratedFile.h"
#include "generate/GenerationRun.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "ui/Prompter.h"
#include "ui/WaitCursor.h"

namespace app {

namespace fs = std::filesystem;
using text::lineBreak;
using text::Text;

BookCommands::BookCommands(CommandHost& host, const model::Project& project,
                           const ProjectSession& session, LastReport& lastReport,
                           fs::path programFolder)
    : host_(host), project_(project), session_(session), lastReport_(lastReport),
      programFolder_(std::move(programFolder)) {}

void BookCommands::generateEpub() {
    generate(
        {"Generate EPUB", "Generate Electronic Book",
         "Electronic Books (*.epub)|*.epub|All Files (*.*)|*.*", "epub", ui::epubHelp,
         [this](const fs::path& file) { return book::writeEpub(project_, file, programFolder_); }});
}

void BookCommands::generatePdf() {
    generate({"Generate PDF", "Generate Documentation as PDF",
              "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*", "pdf", ui::pdfHelp,
              [this](const fs::path& file) { return writePdf(project_, file, programFolder_); }});
}

void BookCommands::generate(const Kind& kind) {
    const auto objection = [this, &kind] {
        return generate::nothingToGenerate(project_, kind.title);
    };
    host_.carryOut({EditorFate::isStored, objection}, [this, &kind] {
        const auto chosen = ui::Prompter::current().chooseFile(
            &host_.window(),
            {ui::FileQuestion::Kind::save, kind.question, kind.filter, 1, session_.folder(),
             generate::siblingFile(project_.projectPath().filename(), kind.extension),
             kind.extension});
        if (!chosen) {
            return;
        }
        const fs::path file = platform::fullPath(*chosen);
        book::BookOutcome outcome;
        {
            const ui::WaitCursor busy;
            outcome = kind.write(file);
        }
        report(kind, file, outcome);
    });
}

void BookCommands::report(const Kind& kind, const fs::path& file,
                          const book::BookOutcome& outcome) {
    Text text = "Output to:" + Text(lineBreak) + text::displayText(file) + Text(lineBreak);
    if (!outcome.notes.empty()) {
        text::append(text, lineBreak, "Other than in the project:", lineBreak);
        for (const Text& line : book::noteLines(outcome.notes, project_)) {
            text::append(text, line, lineBreak);
        }
    }
    Text failed;
    if (outcome.failures.empty()) {
        text::append(text, lineBreak, "Generation Complete.");
    } else {
        const model::FileFailure& failure = outcome.failures.front(); // for one file
        text::append(failed, text::displayText(failure.path.filename()), ": ", failure.reason);
        text::append(text, lineBreak, "Not written: ", text::displayText(failure.path), ": ",
                     failure.reason);
    }
    host_.status().setTrouble(Trouble::output, failed);
    lastReport_.show(kind.title, kind.help, text);
}

} // namespace app
