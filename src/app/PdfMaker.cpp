#include "app/PdfMaker.h"

#include "book/PdfBook.h"
#include "book/PrintPage.h"
#include "generate/GeneratedFile.h"
#include "platform/Files.h"
#include "ui/PagePrinter.h"

namespace app {

namespace fs = std::filesystem;
using model::Project;

namespace {

constexpr const char* pagePath = "/book.html";

/// Prints again and again until the numbers in the contents are those of the pages.
class PdfMaker : public ui::PageSource {
public:
    PdfMaker(const Project& project, const fs::path& programFolder)
        : project_(project), page_(project, programFolder) {}

    std::optional<std::string> read(const std::string& path) override {
        return path == pagePath ? page_.html(numbers_) : page_.picture(path.substr(1));
    }

    /// The file's bytes; empty, with a reason, when it cannot be made.
    std::string make(std::string& problem) {
        problem = ui::PagePrinter::problem();
        if (!problem.empty()) {
            return {};
        }
        // The first time there are no numbers yet, the second time they have come.
        constexpr int most = 5;
        for (int attempt = 0; attempt < most; ++attempt) {
            auto file = book::PdfFile::read(ui::PagePrinter::print(*this, pagePath, paper()));
            const auto pages = file ? book::topicPages(*file, project_) : std::nullopt;
            if (!pages) {
                problem = "the web engine failed, or its file cannot be understood";
                return {};
            }
            if (*pages == numbers_) {
                return finishedPdf(std::move(*file), project_, page_.title());
            }
            numbers_ = *pages;
        }
        problem = "the pages do not come to rest";
        return {};
    }

    book::Notes takeNotes() { return page_.takeNotes(); }

private:
    ui::Paper paper() const {
        const text::Text language = project_.options().language().tag;
        const bool isOnLetter = language.ends_with("-US") || language.ends_with("-CA");
        return isOnLetter ? ui::Paper::letter : ui::Paper::a4;
    }

    const Project& project_;
    book::PrintPage page_;
    std::vector<int> numbers_;
};

} // namespace

book::BookOutcome writePdf(const Project& project, const fs::path& file,
                           const fs::path& programFolder) {
    book::BookOutcome outcome;
    if (auto fault = generate::outputFault(file, project.projectPath())) {
        outcome.failures.push_back(std::move(*fault));
        return outcome;
    }
    PdfMaker maker(project, programFolder);
    std::string problem;
    const std::string bytes = maker.make(problem);
    outcome.notes = maker.takeNotes();
    if (problem.empty()) {
        generate::noteFailure(outcome.failures, file, platform::replaceFile(file, bytes));
    } else {
        outcome.failures.push_back({file, problem});
    }
    return outcome;
}

} // namespace app
