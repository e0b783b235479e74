#include <cstdlib>

#include "compile/CompilerFixture.h"
#include "generate/GenerationRun.h"

using namespace test;

TEST_F(CompilerTest, TakesAProjectAsItIsInTheWild) {
    write(
        "doc/Html/Start.htm",
        "<title>St\xE4rt</title>\n<link href='../CSS\\main.css'><a href='page%202.htm#There'>x</a>"
        "<a href=page%202.htm#nowhere>\n<a href='missing.htm'><a href='missing.htm'>"
        "<img src='C:\\pic.gif'><img src='//host/share/pic.gif'><img src='http://x.invalid/a.gif'>"
        "<a href='../../secret.txt'><a href='other.chm::/x.htm'><a href='mailto:a@x.invalid'>"
        "<a href=start.HTM>self</a><a href='#me'><p id=twice><p id=twice>");
    write("doc/Html/page 2.htm", "<title>Two</title><a name='There'><object><param name='Keyword' "
                                 "value='one'><param name='Keyword' value='two, below'>");
    write("doc/css/main.css", "@import 'more.css';\nbody { background: url(../img/b.png) }");
    write("doc/css/more.css", "p { background: url(none.png) }");
    write("doc/img/b.png", "picture");
    write("doc/100%25.htm", "<title>Percent</title>");
    write("shared/far.htm", "<img src='far.png'>");
    write("shared/far.png", "far");
    write("secret.txt", "never");
    write("doc/ids.h",
          "#define IDH_ONE 1\n#define IDH_TWO 0x2\n#define UNUSED 7\n#define ALSO 1\n");
    write("doc/toc.hhc", "<ul>" + entry("Start", "Html\\START.htm") + "<ul>"
                             + entry("Two there", "html/page 2.htm#There") + "</ul>"
                             + entry("Gone", "gone.htm") + entry("Percent", "100%25.htm")
                             + entry("Merged", "other.chm::/a.htm"));
    write("doc/p.hhp", "[OPTIONS]\nCompiled file=Out\\Help\nContents file=toc.hhc\nAuto Index=Yes\n"
                       "Title=Caf\xE9\nStrange=1\n[FILES]\nhtml\\start.htm\n..\\shared\\far.htm\n"
                       "NUL\n[ALIAS]\nIDH_ONE=html\\start.htm\nidh_two=html/page 2.htm#There\n"
                       "IDH_NONE=html\\start.htm\nALSO=html\\start.htm\n[MAP]\n#include <ids.h>\n"
                       "[MERGE FILES]\nother.chm\n");
    const CompileOutcome outcome = compile("doc/p.hhp");
    EXPECT_EQ(
        messagesOf(outcome),
        (Lines{"doc/p.hhp:6: note: option \"Strange\" has no effect",
               "doc/p.hhp:8: note: html/start.htm is called Html/Start.htm",
               "doc/p.hhp:10: warning: file not found: NUL",
               "doc/p.hhp:13: note: html/page 2.htm is called Html/page 2.htm",
               "doc/p.hhp:14: warning: IDH_NONE has no number",
               "doc/p.hhp:15: warning: context 1 of ALSO is given to IDH_ONE already",
               "doc/ids.h:3: note: 1 numbers have no page: UNUSED",
               "doc/toc.hhc:1: note: Html/START.htm is called Html/Start.htm",
               "doc/toc.hhc:2: note: html/page 2.htm is called Html/page 2.htm",
               "doc/toc.hhc:3: warning: file not found: gone.htm",
               "doc/Html/Start.htm:2: note: CSS/main.css is called css/main.css",
               "doc/Html/Start.htm:3: warning: file not found: Html/missing.htm",
               "doc/Html/Start.htm:3: warning: \"C:\\pic.gif\" is a place on the author's machine",
               "doc/Html/Start.htm:3: warning: \"../../secret.txt\" leads out of the project's "
               "folder",
               "doc/Html/Start.htm:3: note: Html/start.HTM is called Html/Start.htm",
               "doc/Html/Start.htm:3: warning: the place \"twice\" is there already",
               "doc/css/more.css:1: warning: file not found: css/none.png",
               "doc/Html/Start.htm:2: warning: Html/page 2.htm has no place \"nowhere\"",
               "doc/Html/Start.htm:3: warning: Html/Start.htm has no place \"me\""}));
    ASSERT_EQ(outcome.output, folder / "doc/Out/Help.chm");
    EXPECT_EQ(pathsOf(outcome.output),
              (Lines{"/100%25.htm", "/Html/Start.htm", "/Html/page 2.htm", "/css/main.css",
                     "/css/more.css", "/img/b.png", "/p.hhk", "/shared/far.htm", "/shared/far.png",
                     "/toc.hhc"}));

    const auto book = help::HelpBook::open(outcome.output);
    EXPECT_EQ(book->title(), "Caf\u00E9");
    EXPECT_EQ(book->homePage(), "/Html/Start.htm"); // the first of the contents
    EXPECT_EQ(book->pageOfContext(1), "/Html/Start.htm");
    EXPECT_EQ(book->pageOfContext(2), "/Html/page 2.htm#There");
    EXPECT_EQ(indexOf(*book), (Lines{"one: /Html/page 2.htm", "two, below: /Html/page 2.htm"}));
    ASSERT_EQ(book->contents().size(), 5U);
    EXPECT_EQ(book->contents()[1].target.page, "/html/page 2.htm#There");
    EXPECT_EQ(book->contents()[2].target.page, "/gone.htm");
    EXPECT_EQ(book->contents()[4].target.page, "other.chm::/a.htm");
    EXPECT_EQ(test::bytesOf(folder / "doc/img/b.png"),
              help::ChmFile::open(outcome.output)->read("/img/b.png"));
}

TEST_F(CompilerTest, LetterCaseAloneMakesNoTwoFiles) {
    write("a.htm", "one");
    write("A.htm", "two");
    if (test::bytesOf(folder / "a.htm") != "one") {
        GTEST_SKIP() << "letter case does not tell files apart here";
    }
    write("p.hhp", "[FILES]\na.htm\nA.htm\n");
    EXPECT_EQ(messagesOf(compile("p.hhp")),
              (Lines{"p.hhp:3: warning: A.htm and a.htm differ in letter case only; the help can "
                     "hold one of them"}));
    EXPECT_EQ(help::ChmFile::open(folder / "p.chm")->read("/A.HTM"), "one");
}

TEST_F(CompilerTest, WritesTheCodePageOfTheLanguage) {
    const std::string name = "\u041D\u0430\u0447\u0430\u043B\u043E"; // a Russian word
    write("a.htm", "\xEF\xBB\xBF<title>" + name + " \u0416\u00E9</title>");
    write("b.htm", "<meta charset=koi8-r><title>\xEE</title>");
    write("t.hhc", "<ul>" + entry(name, "a.htm") + entry("&Iacute;&#1078;", "b.htm"));
    write("i.hhk", "<ul>" + entry("&Iacute;&#224;", "a.htm"));
    write("p.hhp",
          "[OPTIONS]\nLanguage=0x419\nContents file=t.hhc\nIndex file=i.hhk\nTitle=" + name);
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_EQ(
        messagesOf(outcome),
        (Lines{"a.htm:1: warning: the title has characters that code page 1251 lacks: \u00E9"}));
    const auto file = help::ChmFile::open(outcome.output);
    EXPECT_NE(file->read("/t.hhc")->find("\"\xCD\xE0\xF7\xE0\xEB\xEE\""), std::string::npos);
    EXPECT_NE(file->read("/#STRINGS")->find("\xCD\xE0\xF7\xE0\xEB\xEE \xC6?"), std::string::npos);
    EXPECT_NE(file->read("/#STRINGS")->find(std::string("\0\xCD\0", 3)), std::string::npos);
    const auto book = help::HelpBook::open(outcome.output);
    EXPECT_EQ(book->title(), name);
    EXPECT_EQ(book->contents()[0].target.title, name);
}

TEST_F(CompilerTest, SameInputGivesTheSameBytesAndFailuresLeaveTheOldFile) {
    for (int i = 0; i < 40; ++i) {
        write("t" + std::to_string(i) + ".htm",
              "<title>" + std::to_string(i) + "</title>"
                  + std::string(static_cast<std::size_t>(i) * 997, static_cast<char>('a' + i % 26))
                  + "<a href=t" + std::to_string(i + 1) + ".htm>");
    }
    write("p.hhp", "[FILES]\nt0.htm\n");
    ASSERT_TRUE(compile("p.hhp", {folder / "one.chm", {}, {}, 1000000000, 1}).isWritten);
    const std::string bytes = test::bytesOf(folder / "one.chm");
    ASSERT_TRUE(compile("p.hhp", {folder / "two.chm", {}, {}, 1000000000, 3}).isWritten);
    EXPECT_TRUE(test::bytesOf(folder / "two.chm").size() == bytes.size());
    // The name of the file stands in it.
    fs::rename(folder / "two.chm", folder / "old.chm");
    ASSERT_TRUE(compile("p.hhp", {folder / "one.chm", {}, {}, 1000000000, 3}).isWritten);
    EXPECT_TRUE(test::bytesOf(folder / "one.chm") == bytes);
    // Without a time it is the newest input's.
    for (const auto& file : fs::directory_iterator(folder.path())) {
        fs::last_write_time(file.path(), fs::file_time_type::clock::now());
    }
    ASSERT_TRUE(compile("p.hhp", {folder / "one.chm"}).isWritten);
    EXPECT_FALSE(test::bytesOf(folder / "one.chm") == bytes);

    test::writeBytes(folder / "one.chm", "old");
    CompileOptions strict{folder / "one.chm"};
    strict.strict = true; // t40.htm is missing
    std::stop_source stopped;
    stopped.request_stop();
    CompileOptions cancelled{folder / "one.chm"};
    cancelled.stop = stopped.get_token();
    for (const CompileOptions& failing : {strict, cancelled}) {
        EXPECT_FALSE(compile("p.hhp", failing).isWritten);
        EXPECT_EQ(test::bytesOf(folder / "one.chm"), "old");
    }
    EXPECT_FALSE(compile("none.hhp", {folder / "one.chm"}).isWritten);
    write("empty.hhp", "[FILES]\nnone.htm\n");
    EXPECT_FALSE(compile("empty.hhp", {folder / "one.chm"}).isWritten);
    write("self.hhp", "[FILES]\nt1.htm\none.chm\n");
    EXPECT_FALSE(compile("self.hhp", {folder / "one.chm"}).isWritten);
    EXPECT_EQ(test::bytesOf(folder / "one.chm"), "old");
}

TEST_F(CompilerTest, NothingIsTooDeepOrTooLong) {
    std::string keyword;
    for (int i = 0; i < 300000; ++i) {
        keyword += "k, ";
    }
    write("a.htm", "<title>" + std::string(70000, 't') + "</title><param name=keyword value='"
                       + keyword + "'><param name=keyword value=', , '>");
    write("p.hhp", "[OPTIONS]\nAuto Index=Yes\nBinary TOC=Yes\nTitle=" + std::string(70000, 't')
                       + "\n[FILES]\na.htm\n");
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_TRUE(outcome.isWritten);
    EXPECT_EQ(help::HelpBook::open(outcome.output)->title(), std::string(1000, 't'));
}

TEST_F(CompilerTest, KeywordsTooLongWithThoseAboveThemStandWithoutThese) {
    const std::string a(600, 'a');
    const std::string b(600, 'b');
    write("t.htm", "<title>T</title><param name=keyword value=own>");
    write("i.hhk", "<ul>" + entry(a, "t.htm") + "<ul>" + entry(b, "t.htm") + "<ul>"
                       + entry("c", "t.htm") + "</ul></ul></ul>");
    write("plain.hhp", "[OPTIONS]\nIndex file=i.hhk\n[FILES]\nt.htm\n");
    EXPECT_EQ(messagesOf(compile("plain.hhp")),
              (Lines{"i.hhk:0: note: keywords that are too long with those above them stand "
                     "without these"}));
    const Lines keywords = {a + ": /t.htm", b + ": /t.htm", b + ", c: /t.htm", "own: /t.htm"};
    EXPECT_EQ(indexOf(*help::HelpBook::open(folder / "plain.chm")), keywords);

    write("again.hhp", "[OPTIONS]\nIndex file=i.hhk\nAuto Index=Yes\n[FILES]\nt.htm\n");
    const CompileOutcome outcome = compile("again.hhp"); // its index is written anew
    EXPECT_EQ(indexOf(*help::HelpBook::open(outcome.output)), keywords);
    const auto entries =
        workshop::readSitemap(help::ChmFile::open(outcome.output)->read("/i.hhk").value()).entries;
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[1].depth, 1);
    EXPECT_EQ(entries[2].depth, 2);

    // One that is too long alone is cut, and no letter with it.
    write("long.htm",
          "<title>L</title><param name=keyword value=k" + std::string(600, '\xE9') + ">");
    write("long.hhp", "[OPTIONS]\nAuto Index=Yes\n[FILES]\nlong.htm\n");
    EXPECT_EQ(messagesOf(compile("long.hhp")), Lines());
}

TEST_F(CompilerTest, HeadersLieBesideTheirIncludersAndNumberPopups) {
    write("sub/a.H", "#include \"deep/b.h\"\n#include \"c.h\"\n#define IDH_A 1\n");
    write("sub/deep/b.h", "#define IDH_B 2\n");
    write("sub/c.h", "#define IDH_C 3\n#include <none.h>\n");
    write("d.h", "#define IDH_D 4\n");
    write("t.htm", "<title>T</title>");
    write("texts.txt", ".topic IDH_A\nOne\n.topic IDH_B\n.topic IDH_C\n.topic IDH_D\n");
    write("p.hhp", "[FILES]\nt.htm\n[MAP]\n#include \"d.h\"\n"
                   "[TEXT POPUPS]\nsub\\a.h\n#include \"d.h\"\ntexts.txt\n");
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_EQ(messagesOf(outcome),
              (Lines{"sub\\c.h:2: warning: cannot include \"none.h\"",
                     "d.h:1: note: 4 numbers have no page: IDH_D, IDH_B, IDH_C, IDH_A"}));
    EXPECT_EQ(help::ChmFile::open(outcome.output)->read("/texts.txt"),
              ".topic 1\r\nOne\r\n.topic 2\r\n.topic 3\r\n.topic 4\r\n");
}

// What the generators of documentation write, in small.
TEST_F(CompilerTest, CompilesWhatOtherToolsWrite) {
    write("index.html", "<title>Index</title><a id='i'></a><h1>One</h1><h2 id=h>Part</h2>");
    write("toc.hhc",
          "<HTML><BODY><OBJECT type=\"text/site properties\"><param name=\"Window Styles\" "
          "value=\"0x801227\"></OBJECT><UL><LI><OBJECT type=\"text/sitemap\">"
          "<param name=\"Name\" value=\"Drei &#8211; vier\"><param name=\"Local\" "
          "value=\"index.html#h\"></OBJECT></LI></UL></BODY></HTML>");
    write("index.hhk", // a keyword refers to itself where it only has others below
          "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Keyword\" value=\"gamma\">"
          "<param name=\"See Also\" value=\"gamma\"></OBJECT><UL><LI><OBJECT "
          "type=\"text/sitemap\"><param name=\"Keyword\" value=\"delta\"><param name=\"Local\" "
          "value=\"index.html#i\"><param name=\"Name\" value=\"[1]\"><param name=\"Local\" "
          "value=\"index.html#h\"></OBJECT></UL></UL>");
    write("p.hhp", "[OPTIONS]\nAuto Index=Yes\nBinary TOC=Yes\nCompiled file=../p.chm\n"
                   "Contents file=toc.hhc\nIndex file=index.hhk\nDefault Window=Main\n"
                   "Default topic=index.html\nLanguage=0x0407 German (GERMANY)\nTitle=B\xFC"
                   "chlein\n\n[WINDOWS]\nMain=\"B\xFC"
                   "chlein\",\"toc.hhc\",\"index.hhk\",\"index.html\",\"index.html\",,,,,0x23520,"
                   ",0x70387e,,,,,,,,0\n\n[FILES]\nindex.html\n");
    CompileOptions strict{folder / "p.chm"};
    strict.strict = true;
    const CompileOutcome outcome = compile("p.hhp", strict);
    EXPECT_EQ(messagesOf(outcome), Lines());
    const auto book = help::HelpBook::open(outcome.output);
    EXPECT_EQ(book->contents()[0].target.title, "Drei \u2013 vier");
    EXPECT_EQ(indexOf(*book), (Lines{"gamma, delta: /index.html#i /index.html#h"}));
}

#ifndef _WIN32

// python3-chm and chmls take every table for themselves.
TEST_F(CompilerTest, ForeignReadersShowTheSameAsOurs) {
    model::TopicOutline outline = test::flatOutline(500);
    Lines keywords;
    Lines titles;
    for (int i = 1; i <= outline.count(); ++i) {
        model::Topic& topic = outline.at(i);
        topic.level = i % 3 == 0 ? "3" : i % 3 == 1 ? "1" : "2";
        topic.title = "Caf\u00E9 " + std::to_string(i);
        topic.keywords = "common; own " + std::to_string(1000 + i);
        topic.contextId = "IDH_" + std::to_string(i);
        topic.contextNumber = std::to_string(i * 7);
        keywords.push_back("own " + std::to_string(1000 + i));
        titles.push_back("Caf\xE9 " + std::to_string(i)); // in the code page
    }
    keywords.insert(keywords.begin(), "common");
    model::Project project;
    project.replace(outline, {}, "p.tsp");
    const auto save = [&] { return model::saveProject(project, folder / "saved.tsp"); };
    generate::generateHelp(project, {folder / "p.hhp", test::programFolder(), save, {}});
    std::string workshop = test::bytesOf(folder / "p.hhp");
    workshop.insert(workshop.find("Auto Index"), "Binary TOC=Yes\r\n");
    write("p.hhp", workshop);
    CompileOptions options{folder / "p.chm"};
    options.title = "\u00DCber alles";
    options.fullTextSearch = true;
    const CompileOutcome outcome = compile("p.hhp", options);
    EXPECT_EQ(messagesOf(outcome), (Lines{"p.hhk:0: note: a keyword has more pages than a binary "
                                          "index can hold for one"}));

    const std::string python =
        "/usr/bin/python3 -c 'import sys; from chm import chm; c = chm.CHMFile(); "
        "c.LoadCHM(sys.argv[1].encode()); print(c.title, c.home, c.topics, c.index, c.lcid)'";
    EXPECT_EQ(printed(python + quoted(outcome.output), folder / "python.txt"),
              "b'\\xdcber alles' b'/html/t1.htm' b'/p.hhc' b'/p.hhk' 1033\n");

    const std::string chmls = "cd" + quoted(folder.path()) + "&& chmls ";
    printed(chmls + "extractindex p.chm index.txt", folder / "log.txt");
    const Lines listed = valuesOf(test::bytesOf(folder / "index.txt"), "Name");
    for (const std::string& keyword : keywords) {
        EXPECT_EQ(std::count(listed.begin(), listed.end(), keyword), 1) << keyword;
    }
    printed(chmls + "extracttoc p.chm toc.txt", folder / "log.txt");
    EXPECT_EQ(valuesOf(test::bytesOf(folder / "toc.txt"), "Name"), titles);
    printed(chmls + "extractalias p.chm p id", folder / "log.txt");
    const std::string aliases = test::bytesOf(folder / "p.ali");
    for (int i = 1; i <= outline.count(); ++i) {
        EXPECT_NE(
            aliases.find("id" + std::to_string(i * 7) + "=html/t" + std::to_string(i) + ".htm"),
            std::string::npos)
            << i;
    }
    const std::string windows = printed(chmls + "printwindows p.chm", folder / "log.txt");
    EXPECT_NE(windows.find("p.hhc"), std::string::npos);
    EXPECT_NE(windows.find("00063520"), std::string::npos);
}

#endif
