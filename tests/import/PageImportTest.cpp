#include <algorithm>
#include <gtest/gtest.h>

#include "import/HelpImport.h"
#include "import/ImportFixture.h"
#include "import/Markdown.h"
#include "import/PageSource.h"

using namespace importer;
using model::Topic;
using text::Text;
namespace fs = std::filesystem;

namespace {

class PageImport : public test::ImportFixture {
protected:
    static fs::path sample(const char* name) {
        return test::sourceFolder() / "tests/data/pages" / name;
    }

    fs::path write(const char* name, const Text& bytes) {
        fs::create_directories((folder / name).parent_path());
        test::writeBytes(folder / name, bytes);
        return folder / name;
    }

    static Text repeated(const Text& part, int count) {
        Text all;
        for (int i = 0; i < count; ++i) {
            all += part;
        }
        return all;
    }

    HelpImportOutcome import(const std::vector<fs::path>& files, bool cuts = false) {
        Text problem;
        const auto source = openPages(files, 1252, problem);
        EXPECT_TRUE(source) << problem;
        return source ? importHelp(project, *source, planImport(*source, cuts), {})
                      : HelpImportOutcome();
    }
};

constexpr const char* otherBody = "<p>text</p>\r\n"
                                  "<h2><a name='second-part-here'></a>Second part: here!</h2>\r\n"
                                  "<p>back <a href='..\\html\\guide.htm#setup-1'>g</a></p>";

} // namespace

TEST_F(PageImport, MarkdownBecomesWhatAnAuthorWouldWrite) {
    const auto outcome = import({sample("guide.md"), sample("sub/other.md"), sample("plain.md")});
    EXPECT_EQ(outline(), "1 The Guide to [guide.htm]\n1 Other [other.htm]\n1 plain [plain.htm]\n");
    EXPECT_EQ(
        body(1),
        test::lines(
            {"<p>Intro badge text.</p>",
             "<p>See <a href='..\\html\\other.htm#second-part-here'>other</a>, "
             "<a href='#setup'>same</a>, gone, up, <a href='http://example.org'>http://example.org"
             "</a>, and <img src='..\\images\\a b.gif' alt='pic'> abs "
             "<a href='https://example.org/x.png'>net</a>.</p>",
             "<h2><a name='setup'></a>Setup</h2>",
             "<ol>",
             "<li>one</li>",
             "<li>",
             "<p>two</p>",
             "<ul>",
             "<li>deep</li>",
             "</ul>",
             "<p>more</p></li>",
             "</ol>",
             "<table border='1' cellpadding='6'>",
             "<tr>",
             "<th>Name</th>",
             "<th>Size</th>",
             "</tr>",
             "<tr>",
             "<td><code>a|b</code> | c</td>",
             "<td><b>2</b></td>",
             "</tr>",
             "<tr>",
             "<td>x</td>",
             "<td><a href='..\\html\\other.htm'>other</a></td>",
             "</tr>",
             "</table>",
             "<pre>| not | table |",
             "|-----|-------|",
             "if (a &lt; b) &quot;x&quot;;",
             "</pre>",
             "<h3>Details \u00FC</h3>",
             "<p><b>raw</b> <img src='..\\images\\guide 1.png' alt=''></p>",
             "<h2><a name='setup-1'></a>Setup</h2>"})
            + "<p>second</p>");
    EXPECT_EQ(body(2), otherBody);
    EXPECT_EQ(body(3), "<p>only a line</p>");
    EXPECT_EQ(test::bytesOf(folder / "out/images/a b.gif"),
              test::bytesOf(sample("sub/pics/a b.gif")));
    EXPECT_TRUE(test::bytesOf(folder / "out/images/guide 1.png").starts_with("\x89PNG"));
    const Text first = "Topic 1 (The Guide to): ";
    EXPECT_EQ(told(outcome), first + "leads to nope.md, which does not come with the pages\n"
                                 + first
                                 + "leads to ../../etc/passwd, which does not come with the pages\n"
                                 + first + "names the picture /etc/x.png, which is not there\n");
    EXPECT_FALSE(outcome.isWhole);
    // One step takes it back; what lies there stays another's.
    project.undo();
    EXPECT_TRUE(project.outline().empty());
}

TEST_F(PageImport, LongPagesAreCutAtTheirHeadings) {
    import({sample("guide.md"), sample("sub/other.md")}, true);
    EXPECT_EQ(outline(), "1 The Guide to [guide.htm]\n..2 Setup [Setup.htm]\n"
                         "....3 Details \u00FC [Details \u00FC.htm]\n..2 Setup [Setup 2.htm]\n"
                         "1 Other [other.htm]\n..2 Second part: here! [Second part here!.htm]\n");
    EXPECT_NE(body(1).find("'..\\html\\Second part here!.htm#second-part-here'"), Text::npos);
    EXPECT_NE(body(1).find("<a href='..\\html\\Setup.htm#setup'>same</a>"), Text::npos);
    EXPECT_EQ(body(4), "<a name='setup-1'></a><p>second</p>");
    EXPECT_EQ(body(5), "<p>text</p>");
    EXPECT_EQ(body(6), "<a name='second-part-here'></a><p>back <a href='..\\html\\Setup 2.htm"
                       "#setup-1'>g</a></p>");
}

TEST_F(PageImport, PagesOfWordProcessorsLoseTheirLooks) {
    import({sample("handbuch.html"), sample("word.htm"), sample("guide.md")});
    EXPECT_EQ(outline(), "1 Handbuch für Übung [handbuch.html]\n1 Příručka [word.htm]\n"
                         "1 The Guide to [guide.htm]\n");
    EXPECT_EQ(
        body(1),
        test::lines(
            {"<p>Intro <b>bold</b>, <i>it</i>, <u>und</u>, H<sub>2</sub>O, x<sup>2</sup>. See "
             "<a href='#kap2'>Kapitel 2</a> and "
             "<a href='https://example.org/a?b=1&amp;c=2'>web</a>.</p>",
             "<h2>Erstes Kapitel</h2>",
             "<ul>",
             "<li>eins</li>",
             "<li>zwei",
             "<ol>",
             "<li>a</li>",
             "<li>b</li>",
             "</ol></li>",
             "</ul>",
             "<table border='1' cellpadding='6'>",
             "<tr>",
             "<th>Name</th>",
             "<th>Größe</th>",
             "</tr>",
             "<tr>",
             "<td colspan='2'>beide</td>",
             "</tr>",
             "</table>",
             "<p><img src='..\\images\\a b.gif' width='40' height='30' alt='ein Bild'></p>",
             "<h2><a name='kap2'></a>Zweites Kapitel „x“ €</h2>",
             "<pre>code",
             "  more</pre>"})
            + "<p>Ende</p>");
    EXPECT_EQ(body(2),
              test::lines({"<p><a href='#_Toc2'>Instalace... 2</a></p>",
                           "<p>Žluťoučký <b>kůň</b> – „x“</p>", "<ul>", "<li>first", "<ul>",
                           "<li>inner <i>one</i></li>", "</ul></li>", "<li>second</li>", "</ul>",
                           "<h2><a name='_Toc2'></a>Instalace</h2>", "<ol>", "<li>step</li>",
                           "<li>next</li>", "</ol>",
                           "<p><img src='..\\images\\a b.gif' width='8' height='8' alt=''></p>"})
                  + "<p><a href='..\\html\\guide.htm#setup'>guide</a> x</p>");
    // What an author wrote stays as it was written, and what most pages have is theirs.
    const Text page = "<p class=note style='color:red'>\xFC</p><p>All of us</p>";
    const Text bodies = "<p class=note style='color:red'>ü</p><p>All of us</p>";
    std::vector<fs::path> own;
    for (const char* name : {"a.htm", "b.html", "c.xhtml", "d.htm", "e.htm"}) {
        own.push_back(write(name, "<title>Own</title><body>" + page));
    }
    import(own);
    for (int position = 4; position <= 8; ++position) {
        EXPECT_EQ(body(position), bodies);
    }
}

TEST_F(PageImport, BringsNothingButPicturesAndOnlyIntoTheProject) {
    const fs::path secret = write("in/secret.png", "no picture, but a key");
    write("in/up.gif", test::bytesOf(sample("sub/pics/a b.gif")));
#ifndef _WIN32 // a device there, which no file can be
    write("in/con.gif", test::bytesOf(sample("sub/pics/a b.gif")));
#endif
    const Text all = "# T\n\n![1](../secret.png) ![2](" + secret.string()
                     + ") ![3](../up.gif) ![4](../con.gif) [5](../../secret.png) ![6](C:/x.png) "
                       "[7](file:///etc/passwd)\n\n<a href='javascript:x'>8</a>";
    const auto outcome = import({write("in/docs/t.md", all), folder / "in/docs/gone.md",
                                 write("in/docs/page.md.txt", "x"), folder / "in/docs/t.md"});
    EXPECT_EQ(body(1), "<p>1 2 <img src='..\\images\\up.gif' alt='3'> 4 5 6 7</p>\r\n<p>8</p>");
    std::vector<Text> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder / "out")) {
        files.push_back(entry.path().filename().string());
    }
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<Text>{"images", "up.gif"}));
    EXPECT_NE(told(outcome).find("gone.md: "), Text::npos);
    Text problem;
    EXPECT_EQ(openPages({folder / "in/docs/gone.md"}, 1252, problem), nullptr);
    EXPECT_FALSE(problem.empty());
    for (const char* name : {"in/x.chm", "in/x.md"}) {
        EXPECT_EQ(openPages({write(name, Text("ITSF\0\0\3", 7))}, 1252, problem), nullptr);
        EXPECT_NE(problem.find(": is no text"), Text::npos);
    }
    EXPECT_EQ(openPages({}, 1252, problem), nullptr);
}

TEST_F(PageImport, FindsPagesAsSitesNameThem) {
    const auto outcome =
        import({write("in/docs/a.md", "[1](b) [2](b#\u00DC) [3](/docs/b#x) [4](/in/docs/b.md) "
                                      "[5](c) [6](c) [7](/else/b) [8](else/b)"),
                write("in/docs/b.md", "# B")});
    const Text link = "<a href='..\\html\\b.htm";
    EXPECT_EQ(body(1), "<p>" + link + "'>1</a> " + link + "#%C3%9C'>2</a> " + link + "#x'>3</a> "
                           + link + "'>4</a> 5 6 7 8</p>");
    const Text said = told(outcome);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 3) << said;
}

TEST_F(PageImport, TitlesAndCodePagesAreFoundOut) {
    const struct {
        Text bytes;
        Text title;
        Text body;
    } cases[] = {
        {"---\ntitle: \"Named: x\"\n---\n# Other\n\ntext", "Named: x",
         "<h1>Other</h1>\r\n<p>text</p>"},
        {"---\n\ntext", "file", "<hr>\r\n<p>text</p>"},
        {"Set\next\n===\n\nb", "Set ext", "<p>b</p>"},
        {"# ![p](x.gif)\n\n## Two\n", "Two", "<h1>p</h1>"},
        {"", "file", "<p></p>"},
        {"# Gr\xFC\xDF\xA4\n\n\x80", "Grüß¤", "<p>€</p>"},
        {"\xEF\xBB\xBF# Gr\xC3\xBC\xC3\x9F\r\n\r\nline\r\nline", "Grüß", "<p>line line</p>"},
        {"# ~~Old~~ T\n\n~~a **b** \xC3\xBC~~ ~~~c~~ ~~ d~~ [~~e~~](x:y)\n`~~f~~` ~~g\nh~~\n\n- [ "
         "] i\n"
         "- [x]  j\n- [X]k\n- [ ]\n- # [ ] l\n\nm ~~\nn~~",
         "Old T",
         "<p><s>a <b>b</b> ü</s> ~~~c~~ ~~ d~~ <s>e</s> <code>~~f~~</code> <s>g h</s></p>\r\n"
         "<ul>\r\n<li>☐ i</li>\r\n<li>☑ j</li>\r\n<li>[X]k</li>\r\n<li>[ ]</li>\r\n<li>\r\n<h1>[ ] "
         "l</h1></li>\r\n</ul>\r\n<p>m ~~ n~~</p>"},
        {"# T\n\n| ~~a~~ |\n|---|", "T",
         "<table border='1' cellpadding='6'>\r\n<tr>\r\n<th><s>a</s></th>\r\n</tr>\r\n</table>"},
        {"# T\n| a |\n|---|\n| b | c\nnext", "T",
         "<table border='1' cellpadding='6'>\r\n<tr>\r\n<th>a</th>\r\n</tr>\r\n<tr>\r\n<td>b</td>"
         "\r\n</tr>\r\n</table>\r\n<p>next</p>"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.bytes);
        model::Project fresh;
        fresh.setProjectPath(folder / "out/p.tsp");
        project = std::move(fresh);
        import({write("file.markdown", each.bytes)});
        EXPECT_EQ(project.outline().at(1).title, each.title);
        EXPECT_EQ(body(1), each.body);
    }
    for (const Text& hostile : {Text(200000, '['), Text(200000, '>'), Text(100000, '|') + "\n|-|",
                                Text(50000, '-') + "\n" + Text(50000, '`'),
                                repeated("~~a*~~b*", 50000), repeated("- [ ] ~~a\n  ", 500)}) {
        EXPECT_NO_THROW(readMarkdown(hostile));
    }
    const Text head = repeated("|a", 200) + "\n" + repeated("|-", 200) + "\n";
    EXPECT_LT(readMarkdown(head + repeated("|\n", 20000)).html.size(), 3000000U);
}
