#include "help/HelpBook.h"

#include <gtest/gtest.h>
#include <random>

#include "generate/GenerationRun.h"
#include "help/ContentsPlace.h"
#include "support/HelpCompiler.h"
#include "support/TestFiles.h"
#include "text/CodePage.h"
#include "ui/HelpContext.h"

using namespace help;
using namespace model;
using namespace text;
namespace fs = std::filesystem;
using test::topic;

namespace {

const fs::path compiledManual = test::programFolder() / "HTML Topicsmith.chm";

std::unique_ptr<HelpBook> opened(const fs::path& path) {
    auto book = HelpBook::open(path);
    EXPECT_NE(book, nullptr) << path;
    return book;
}

std::vector<std::string> contentsOf(const HelpBook& book) {
    std::vector<std::string> lines;
    for (const ContentsEntry& entry : book.contents()) {
        lines.push_back(std::to_string(entry.depth) + ' ' + entry.target.title + ' '
                        + entry.target.page);
    }
    return lines;
}

std::vector<std::string> contentsOf(const TopicOutline& outline) {
    std::vector<std::string> lines;
    for (const Topic& each : outline) {
        lines.push_back(std::to_string(levelDepth(each.level)) + ' ' + each.title + " /html/"
                        + each.fileName);
    }
    return lines;
}

std::vector<std::string> indexOf(HelpBook& book) {
    std::vector<std::string> lines;
    for (const IndexEntry& entry : book.index()) {
        std::string line = entry.keyword + ':';
        for (const HelpTarget& target : entry.targets) {
            line += ' ' + target.page;
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> found(HelpBook& book, const char* question) {
    std::vector<std::string> titles;
    for (const HelpTarget& target : book.search(HelpQuestion(question))) {
        titles.push_back(target.title);
    }
    return titles;
}

/// Does with a help file whatever a reader can do.
void readAll(const fs::path& path) {
    const auto book = HelpBook::open(path);
    if (book == nullptr) {
        return;
    }
    for (const ContentsEntry& entry : book->contents()) {
        book->read(entry.target.page);
    }
    book->pageOfContext(ui::mainWindowHelp);
    book->index();
    book->search(HelpQuestion("the help"));
}

} // namespace

TEST(HelpBook, ShowsAGeneratedHelpAsItsOutline) {
    if (!test::canCompileHelp()) {
        GTEST_SKIP() << "no compiler runs here";
    }
    TopicOutline outline = test::outlineOf(
        {topic(1, "Start", "start.htm", "first\r\n\u20AC\u00A0\u00E9\u00FF\r\n" + Text(90000, 'x')),
         topic(2, "Below", "below.htm"), topic(3, "Deep", "deep.htm", ""),
         topic(1, "A Caf\u00E9 &amp; more", "a b.htm"), topic(2, "Last", "last.htm")});
    outline.at(2).contextId = "IDH_BELOW";
    outline.at(2).contextNumber = "10";
    outline.at(5).contextId = "IDH_LAST";
    outline.at(5).contextNumber = "4000000000";
    outline.at(1).keywords = "one; two";
    outline.at(4).keywords = "Two;caf\u00E9";
    Project project;
    project.replace(outline, {}, "p.tsp");
    const test::TemporaryFolder folder;
    const auto save = [&] { return saveProject(project, folder / "saved.tsp"); };
    const auto report =
        generate::generateHelp(project, {folder / "help.hhp", test::programFolder(), save, {}});
    EXPECT_TRUE(report.failures.empty());
    test::compileHelp(folder / "help.hhp");

    const auto book = opened(folder / "help.chm");
    for (const Topic& each : outline) {
        EXPECT_EQ(book->read("/html/" + each.fileName),
                  "\xEF\xBB\xBF"
                      + CodePage().decoded(test::bytesOf(folder / "html" / each.fileName)));
    }
    outline.at(4).title = "A Caf\u00E9 & more";
    EXPECT_EQ(contentsOf(*book), contentsOf(outline));
    EXPECT_EQ(book->title(), "help");
    EXPECT_EQ(book->homePage(), "/html/start.htm");
    EXPECT_EQ(book->pageOfContext(10), "/html/below.htm");
    EXPECT_EQ(book->pageOfContext(4000000000), "/html/last.htm");
    EXPECT_EQ(book->pageOfContext(11), "");
    EXPECT_EQ(indexOf(*book),
              (std::vector<std::string>{"café: /html/a b.htm", "one: /html/start.htm",
                                        "two: /html/start.htm /html/a b.htm"}));
    EXPECT_EQ(firstFrom(book->index(), "TW"), 2U);
    EXPECT_EQ(firstFrom(book->index(), "x"), 3U);
    // Then come the pages that have links to it.
    EXPECT_EQ(found(*book, "CAFÉ"), (std::vector<std::string>{"A Café & more", "Start", "Deep"}));
}

TEST(HelpBook, ShowsTheManual) {
    const fs::path manual = test::sourceFolder() / "help/topicsmith.tsp";
    Project project;
    ASSERT_EQ(loadProject(project, manual).stop, LoadStop::none);
    EXPECT_EQ(test::projectFile(project.outline(), project.options()), test::bytesOf(manual))
        << "not as the program itself saves it";

    const auto book = opened(compiledManual);
    EXPECT_EQ(contentsOf(*book), contentsOf(project.outline()));
    EXPECT_EQ(book->title(), "HTML Topicsmith");
    std::size_t keywords = 0;
    for (const Topic& each : project.outline()) {
        EXPECT_EQ(book->pageOfContext(static_cast<unsigned>(std::stoul(each.contextNumber))),
                  "/html/" + each.fileName);
        keywords +=
            static_cast<std::size_t>(std::count(each.keywords.begin(), each.keywords.end(), ';'))
            + 1;
    }
    std::size_t targets = 0;
    for (const IndexEntry& entry : book->index()) {
        targets += entry.targets.size();
    }
    EXPECT_EQ(targets, keywords);
    for (const ui::HelpContext context : ui::helpContexts) {
        EXPECT_NE(book->pageOfContext(context), "") << context;
    }
    for (const auto& picture : fs::directory_iterator(test::sourceFolder() / "help/images")) {
        EXPECT_TRUE(book->read("/images/" + picture.path().filename().string()))
            << picture.path() << " is shown nowhere";
    }
}

TEST(HelpBook, ReadsHelpOfOtherTools) {
    if (!test::canCompileHelp()) {
        GTEST_SKIP() << "no compiler runs here";
    }
    const test::TemporaryFolder folder;
    // Written by hand in Windows-1251: "Начало" begins with CD E0 F7 E0 EB EE.
    const std::string title = "\xCD\xE0\xF7\xE0\xEB\xEE";
    fs::create_directory(folder / "sub");
    test::writeBytes(folder / "start.htm", "<title>" + title + "</title><h1>" + title
                                               + "</h1><script>hidden <n;i++</script> t<b>ag</b>s");
    test::writeBytes(folder / "sub/utf.html",
                     "<meta charset='utf-8'><title>Zwölf &unheardof; &#937;</title>Größe");
    test::writeBytes(folder / "t.hhc",
                     "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + title
                         + "\"><param name=\"Local\" value=\"start.htm\"></OBJECT>"
                           "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" "
                           "value=\"No page\"></OBJECT><UL><LI><OBJECT type='text/sitemap'><param "
                           "name=Name value='Web'><param name=Local value='http://x.example/'>"
                           "</OBJECT></UL></UL></UL></UL><UL><LI><OBJECT type=\"text/sitemap\">"
                           "<param name=\"Name\" value=\"Zw&ouml;lf\"><param name=\"Local\" "
                           "value=\"sub\\utf.html#p\"></OBJECT></UL>");
    test::writeBytes(folder / "t.hhk",
                     "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"key\">"
                     "<param name=\"Name\" value=\"First\"><param name=\"Local\" "
                     "value=\"start.htm\"><param name=\"Name\" value=\"Second\"><param "
                     "name=\"Local\" value=\"sub/utf.html\"></OBJECT><UL><LI><OBJECT "
                     "type=\"text/sitemap\"><param name=\"Name\" value=\"part\"><param "
                     "name=\"Local\" value=\"start.htm#p\"></OBJECT></UL></UL>");
    test::writeBytes(
        folder / "t.hhp",
        "[OPTIONS]\r\nCompiled file=t.chm\r\nContents file=t.hhc\r\nIndex file=t.hhk\r\n"
        "Default topic=start.htm\r\nTitle="
            + title
            + "\r\nLanguage=0x419 Russian\r\n\r\n[FILES]\r\nstart.htm\r\nsub\\utf.html\r\n");
    test::compileHelp(folder / "t.hhp");

    const auto book = opened(folder / "t.chm");
    EXPECT_EQ(book->title(), "Начало");
    EXPECT_EQ(contentsOf(*book),
              (std::vector<std::string>{"1 Начало /start.htm", "2 No page ",
                                        "3 Web http://x.example/", "1 Zwölf /sub/utf.html#p"}));
    EXPECT_EQ(indexOf(*book), (std::vector<std::string>{"key: /start.htm /sub/utf.html",
                                                        "key, part: /start.htm#p"}));
    EXPECT_EQ(found(*book, "начал"), std::vector<std::string>{"Начало"});
    EXPECT_EQ(found(*book, "größe"), std::vector<std::string>{"Zwölf &unheardof; Ω"});
    EXPECT_EQ(found(*book, "hidden"), std::vector<std::string>{});
    EXPECT_EQ(found(*book, "tags"), std::vector<std::string>{"Начало"});
}

TEST(HelpBook, HoldsTheLargestProject) {
    if (!test::canCompileHelp()) {
        GTEST_SKIP() << "no compiler runs here";
    }
    Project project;
    TopicOutline outline = test::flatOutline(TopicOutline::maxTopics);
    for (int i = 1; i <= outline.count(); ++i) {
        outline.at(i).keywords = "common; own " + std::to_string(i);
        outline.at(i).contextId = "IDH_" + std::to_string(i);
        outline.at(i).contextNumber = std::to_string(i);
    }
    project.replace(outline, {}, "p.tsp");
    const test::TemporaryFolder folder;
    const auto save = [&] { return saveProject(project, folder / "saved.tsp"); };
    generate::generateHelp(project, {folder / "help.hhp", test::programFolder(), save, {}});
    test::compileHelp(folder / "help.hhp");
    const auto book = opened(folder / "help.chm");
    EXPECT_EQ(contentsOf(*book), contentsOf(outline));
    EXPECT_EQ(book->pageOfContext(500), "/html/t500.htm");
    ASSERT_EQ(book->index().size(), 501U);
    EXPECT_EQ(book->index().front().targets.size(), 500U);
    EXPECT_EQ(book->search(HelpQuestion("topic")).size(), 500U);
}

TEST(HelpBook, DamagedFilesDoNoHarm) {
    const test::TemporaryFolder folder;
    const std::string whole = test::bytesOf(compiledManual);
    constexpr std::size_t step = 1024;
#ifdef _WIN32
    constexpr int tenth = 10; // to start a program takes long there
#else
    constexpr int tenth = 1;
#endif
    for (std::size_t length = 0; length < whole.size(); length += step * tenth) {
        test::writeBytes(folder / "cut.chm", std::string_view(whole).substr(0, length));
        readAll(folder / "cut.chm");
    }
    std::mt19937 random(7);
    for (int round = 0; round < 200 / tenth; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 20; ++i) {
            // Half of them in the directory, which decides what is read.
            const std::size_t range = i % 2 == 0 ? damaged.size() : 16 * step;
            damaged[random() % range] = static_cast<char>(random());
        }
        test::writeBytes(folder / "damaged.chm", damaged);
        readAll(folder / "damaged.chm");
    }
    EXPECT_TRUE(opened(compiledManual)->isWhole());
    test::writeBytes(folder / "cut.chm", std::string_view(whole).substr(0, whole.size() - 200));
    EXPECT_FALSE(opened(folder / "cut.chm")->isWhole());
    EXPECT_EQ(HelpBook::open(folder / "missing.chm"), nullptr);
    EXPECT_EQ(HelpBook::open(folder.path()), nullptr);
}

TEST(HelpQuestion, WantsAllWordsFromTheirBeginnings) {
    const HelpPage page = readHelpPage("<title>Undo</title>Take back, and back<br>again", 1252);
    const auto score = [&page](const char* question) { return HelpQuestion(question).score(page); };
    EXPECT_EQ(page.text, "take back, and back again");
    EXPECT_EQ(score("BA tak"), 3);
    EXPECT_EQ(score("ack"), 0);
    EXPECT_EQ(score("back missing"), 0);
    EXPECT_EQ(score("\"take back\""), 1);
    EXPECT_EQ(score("\"back take\""), 0);
    EXPECT_EQ(score("\"take back"), 1); // the quote is yet to be closed
    EXPECT_GT(score("undo"), 1000);
    EXPECT_EQ(score(" \" \" "), 0);
}

TEST(Link, ToAnotherHelpFileIsTakenApart) {
    const auto link = linkToOtherBook("mk:@MSITStore:C:\\Help\\other.chm::/html/a.htm#x");
    ASSERT_TRUE(link);
    EXPECT_EQ(link->file, "other.chm");
    EXPECT_EQ(link->page, "/html/a.htm#x");
    EXPECT_EQ(linkToOtherBook("ms-its:../../other.chm::a.htm")->file, "other.chm");
    EXPECT_EQ(linkToOtherBook("Über.chm::/a.htm")->file, fs::path(u8"Über.chm"));
    EXPECT_FALSE(linkToOtherBook("http://x/::y"));
}

TEST(ContentsPlace, IsThatOfThePartThenOfThePage) {
    std::vector<ContentsEntry> contents;
    for (const char* page : {"", "/a.htm", "/b.htm#x", "/b.htm#y", "/a.htm", "/B.htm"}) {
        contents.push_back({1, {"entry", page}});
    }
    EXPECT_EQ(entryOf(contents, "/b.htm#y", 3), 4);
    EXPECT_EQ(entryOf(contents, "/b.htm", 0), 6) << "letter case does not count";
    EXPECT_EQ(entryOf(contents, "/b.htm#z", 0), 3);
    EXPECT_EQ(entryOf(contents, "/b.htm#z", 4), 4) << "the selected one is as good";
    EXPECT_EQ(entryOf(contents, "/a.htm", 5), 5);
    EXPECT_EQ(entryOf(contents, "/a.htm", 6), 2);
    EXPECT_EQ(entryOf(contents, "/c.htm", 2), 0);
}
