#include <cstdlib>
#include <sys/wait.h>

#include "app/MainWindowFixture.h"
#include "app/PdfMaker.h"
#include "app/dlgReport.h"

using namespace ui::testing;

using ui::FileQuestion;

namespace fs = std::filesystem;

namespace {

class BookCommands : public test::MainWindow {
protected:
    /// Topics of one to three pages each, with mark-up that would reach into the next one.
    static model::TopicOutline bookOutline() {
        model::TopicOutline outline;
        for (int i = 1; i <= 24; ++i) {
            text::Text body = "<p>See <a href=\"t3.htm#here\">there</a>.<b><div><ul><li>open";
            for (int line = 0; line < i * 5; ++line) {
                body += "<p>Line " + std::to_string(line) + " with a caf\u00E9.</p>";
                body += line % 7 == 6 ? "<h4>Within</h4>" : "";
            }
            body += "<img src='..\\images\\none.png' alt='no picture'><a name=here>here</a>";
            outline.append(test::topic((i - 1) % 3 + 1, "Topic \u65E5 X" + std::to_string(i) + "Y",
                                       "t" + std::to_string(i) + ".htm", body));
        }
        return outline;
    }

    /// What a program of the shell writes, and its exit code.
    std::string said(const std::string& command, int expected = 0) {
        const fs::path output = folder / "said";
        const int status = std::system((command + " >'" + output.string() + "' 2>&1").c_str());
        EXPECT_EQ(WEXITSTATUS(status), expected) << command;
        return test::bytesOf(output);
    }

    std::string page(int number) {
        const std::string which = std::to_string(number);
        return said("pdftotext -layout -f " + which + " -l " + which + " book.pdf -");
    }

    void choosing(const char* caption, const char* question, const char* filter,
                  const char* extension, const fs::path& answer) {
        prompter.expect(FileQuestion{FileQuestion::Kind::save, question, filter, 1, folder.path(),
                                     std::string("p.") + extension, extension},
                        answer);
        EXPECT_TRUE(choose(*window, {"File", "Generate Files", caption}));
        prompter.verify();
    }

    std::string reportText() {
        auto* report = openWindow<app::dlgReport>();
        return report != nullptr ? report->txtReport.text() : "no report";
    }
};

} // namespace

TEST_F(BookCommands, ThePagesOfThePdfAreThoseThatItsContentsSay) {
    load(bookOutline());
    const auto outcome = app::writePdf(project(), folder / "book.pdf", folder / "program");
    ASSERT_TRUE(outcome.failures.empty()) << outcome.failures.front().reason;
    EXPECT_EQ(outcome.notes.size(), 24U) << "a picture is missing in each";
    const std::string bytes = test::bytesOf(folder / "book.pdf");
    said("qpdf --check book.pdf");
    const std::string contents = page(1);
    const std::string bookmarks = said("pdftohtml -xml -i -stdout book.pdf");
    for (int i = 1; i <= 24; ++i) {
        const std::string title = "X" + std::to_string(i) + "Y";
        const std::size_t row = contents.find(title);
        ASSERT_NE(row, std::string::npos) << title;
        const std::size_t end = contents.find('\n', row);
        const int number = std::atoi(contents.c_str() + contents.rfind(' ', end) + 1);
        const std::string text = page(number);
        EXPECT_NE(text.find(title), std::string::npos) << title << " is not on " << number;
        const std::string foot = text.substr(0, text.find_last_not_of("\f\n ") + 1);
        EXPECT_TRUE(foot.ends_with(" " + std::to_string(number))) << foot;
        EXPECT_NE(
            bookmarks.find("<item page=\"" + std::to_string(number) + "\">Topic \u65E5 " + title),
            std::string::npos)
            << title;
    }
    const std::string all = said("pdftotext -layout book.pdf -");
    for (std::size_t start = all.find('\f') + 1, end = 0; // behind the contents
         (end = all.find('\f', start)) != std::string::npos; start = end + 1) {
        const std::string text = all.substr(start, end - start);
        const std::size_t foot = text.find_last_of(' '); // before the number
        const std::size_t last = text.find_last_not_of(" \n", foot);
        const std::string line = text.substr(text.rfind('\n', last) + 1, last);
        EXPECT_TRUE(line.find("Within") == line.npos && line.find("Topic") == line.npos) << text;
    }
    EXPECT_TRUE(app::writePdf(project(), folder / "book.pdf", folder / "program").failures.empty());
    EXPECT_EQ(test::bytesOf(folder / "book.pdf"), bytes) << "another time, other bytes";
}

TEST_F(BookCommands, TheWindowReportsWhatABookLacks) {
    load(test::outlineOf({test::topic(1, "\u00C4", "a.htm", "<a href=none.htm>n</a>")}));
    constexpr const char* epubs = "Electronic Books (*.epub)|*.epub|All Files (*.*)|*.*";
    choosing("Generate EPUB...", "Generate Electronic Book", epubs, "epub", folder / "a.epub");
    EXPECT_EQ(reportText(),
              "Output to:\r\n" + std::string(folder / "a.epub")
                  + "\r\n\r\nOther than in the project:\r\n\u00C4: none.htm: is no part "
                    "of the book; its link was left out\r\n\r\nGeneration Complete.");
    EXPECT_TRUE(test::bytesOf(folder / "a.epub").starts_with("PK\3\4"));

    fs::create_directory(folder / "folder.pdf");
    constexpr const char* pdfs = "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*";
    choosing("Generate PDF...", "Generate Documentation as PDF", pdfs, "pdf",
             folder / "folder.pdf");
    EXPECT_NE(reportText().find("Not written: " + std::string(folder / "folder.pdf") + ": "),
              std::string::npos);
    EXPECT_EQ(reportText().find("Complete"), std::string::npos);
}

TEST_F(BookCommands, TheProgramPrintsWithoutAScreenAndSaysWhyNot) {
    test::writeBytes(folder / "p.tsp",
                     test::projectFile(test::outlineOf({test::topic(1, "\u00C4", "a.htm")}), {}));
    test::writeBytes(folder / "old.pdf", "old");
    const std::string program = "env -u DISPLAY -u QT_QPA_PLATFORM '"
                                + std::string(test::programFolder() / "topicsmith") + "' --pdf ";
    EXPECT_EQ(said(program + "p.tsp new.pdf"), "");
    EXPECT_TRUE(test::bytesOf(folder / "new.pdf").starts_with("%PDF-"));
    EXPECT_EQ(said(program + "p.tsp", 2), "topicsmith: --pdf expects PROJECT.tsp OUT.pdf\n");
    EXPECT_NE(said(program + "none.tsp old.pdf", 1).find("none.tsp"), std::string::npos);
    EXPECT_NE(said(program + "p.tsp p.tsp", 1).find("is the project itself"), std::string::npos);
    EXPECT_NE(said("TOPICSMITH_BROWSER=text " + program + "p.tsp old.pdf", 1).find("web engine"),
              std::string::npos);
    EXPECT_EQ(test::bytesOf(folder / "old.pdf"), "old");
}
