#include <algorithm>
#include <gtest/gtest.h>

#include "compile/Compiler.h"
#include "import/HelpImportFixture.h"

using namespace importer;
using model::Topic;
using test::item;
using text::Text;
namespace fs = std::filesystem;
using HelpImport = test::HelpImportFixture;

TEST_F(HelpImport, MakesAnOutlineOfAnyContents) {
    Text deep = item("Sub", "b/index.html");
    for (int i = 3; i <= 12; ++i) {
        deep += "<UL>" + item("L" + std::to_string(i), "");
    }
    writeProject("a/index.html\nlonely.htm\ngone.htm\n",
                 item("<One> & \"two\" &amp;lt;", "a/index.html") + item("Place", "a/index.html#p")
                     + item("Book", "") + "<UL>" + deep + "</UL></UL></UL></UL></UL></UL></UL></UL>"
                     + "</UL></UL></UL>" + item("Again", "a/index.html") + "<UL>"
                     + item("Below", "a/c.htm") + "</UL>" + item("Web", "http://example.org/x")
                     + item("Missing", "nowhere.htm") + item("CON", ""));
    write("a/index.html", "<title>x</title><body><h1>One</h1>text <a href=c.htm>c</a>");
    write("b/index.html", "<p>b</p>");
    write("a/c.htm", "<p>c</p>");
    write("lonely.htm", "<TITLE>Lonely &amp;\n wolf</TITLE><p>l <a href='named.htm'>n</a></p>");
    write("named.htm", "<title>Named by a page alone</title>");
    const auto outcome = import();
    const Text levels = outline();
    EXPECT_EQ(levels.substr(0, levels.find("....3")),
              "1 &lt;One> & &quot;two&quot; &amp;lt; [index.html]\n1 Book [Book.htm]\n"
              "..2 Sub [index 2.html]\n");
    EXPECT_NE(levels.find("................9 L9"), Text::npos);
    EXPECT_NE(levels.find("................9 L12"), Text::npos);
    EXPECT_EQ(levels.substr(levels.find("1 Again")),
              "1 Again [Again.htm]\n..2 Below [c.htm]\n1 Web [Web.htm]\n1 Missing [Missing.htm]\n"
              "1 CON [Topic.htm]\n1 Other Pages [Other Pages.htm]\n..2 Lonely & wolf [lonely.htm]\n"
              "..2 Named by a page alone [named.htm]\n");
    const auto& topics = project.outline();
    const auto bodyOf = [&](const Text& title) {
        return std::find_if(topics.begin(), topics.end(),
                            [&](const Topic& topic) { return topic.title == title; })
            ->body;
    };
    EXPECT_EQ(bodyOf("Book"), "<p></p>");
    EXPECT_EQ(bodyOf("Again"), "<p><a href='..\\html\\index.html'>Again</a></p>");
    EXPECT_EQ(bodyOf("Web"), "<p><a href='http://example.org/x'>Web</a></p>");
    EXPECT_EQ(body(1), "<h1>One</h1>text <a href='..\\html\\c.htm'>c</a>");
    for (const char* note : {"3 topics below level 9", "gone.htm is in the project's list",
                             "(Missing): leads to nowhere.htm", "1 entry of the contents leads"}) {
        EXPECT_TRUE(hasNote(outcome, note)) << note << report(outcome, project.outline());
    }
    EXPECT_FALSE(outcome.isWhole);
    EXPECT_EQ(project.options().projectName, "Tést & Co");
}

TEST_F(HelpImport, TakesPagesApart) {
    writeProject("p.htm\nq.htm\nr.htm\n", item("Das B\xFC\x63h", "p.htm") + item("Q", "q.htm"),
                 "Language=0x407 German\nIndex file=h.hhk\n");
    write("h.hhk",
          "<UL>" + item("Index; word", "p.htm#x") + "<UL>" + item("sub", "q.htm") + "</UL></UL>");
    write("p.htm",
          "<html><head><title>x</title><link rel=stylesheet href='st/a.css'></head>"
          "<body background=\"pic/back.gif\" class=c>\n"
          "<object classid=\"clsid:1E2A7BD0-dab9-11d0-b93a-00c04fc99f9e\">"
          "<param name=\"Keyword\" value=\"W\xF6rter\"><param name=Keyword value='Two'></object>"
          "<div><h1 id=\"top1\"><a name=x></a>Das <i>B&uuml;ch</i>\xB6</h1>\n"
          "<img src=\"pic/a%20b.png\" alt=\"say &quot;hi&quot;\"> <a href='q.htm?v#y'>q</a> "
          "<a class=k href=\"ms-its:other.chm::/z.htm\">z</a> <a href=\"gone.htm\">g</a>"
          "<a href=tool.zip>t</a><a href='#x'>x</a><script>if (a<\"b\") {}</script>"
          "<object classid=h><param name=Item1 value=\"See;r.htm\"></object></div></body></html>");
    write("q.htm",
          "<meta charset=utf-8><link rel=stylesheet href='st/a.css'>"
          "<meta name=Description content='\xC3\x9C\n &amp; <q>'><p>gr\xC3\xBC\xC3\x9F</p>");
    write("r.htm", "<link rel=stylesheet href='st/a.css'>gr\xFC\xDF");
    write("st/a.css", "@import 'b.css'; p { background: url(../pic/c.gif) }");
    write("st/b.css", "p {}");
    for (const char* picture : {"pic/a b.png", "pic/back.gif", "pic/c.gif", "tool.zip"}) {
        write(picture, picture);
    }
    fs::create_directories(folder / "out/images");
    test::writeBytes(folder / "out/images/a b.png", "own picture");
    const auto outcome = import();
    EXPECT_EQ(body(1),
              "<div><a name='top1'></a><a name='x'></a><img src='..\\images\\a b 2.png' alt=\"say "
              "&quot;hi&quot;\"> <a href='..\\html\\q.htm#y'>q</a> <a class=k "
              "href=\"ms-its:other.chm::/z.htm\">z</a> <a href=\"gone.htm\">g</a>"
              "<a href='../tool.zip'>t</a><a href='#x'>x</a><script>if (a<\"b\") {}</script>"
              "<object classid=h><param name=Item1 value='See;..\\html\\r.htm'></object></div>");
    EXPECT_EQ(body(2), "<p>grüß</p>");
    EXPECT_EQ(body(4), "grüß");
    EXPECT_EQ(project.outline().at(2).shortDescription, "Ü & &lt;q>");
    EXPECT_EQ(project.outline().at(1).title, "Das Büch");
    EXPECT_EQ(project.outline().at(1).keywords, "Wörter; Two; Index, word");
    EXPECT_EQ(project.outline().at(2).keywords, "Index, word, sub");
    EXPECT_EQ(project.options().languageTag, "de-DE");
    EXPECT_TRUE(project.options().keepsEveryCharacter);
    EXPECT_EQ(project.options().cssFile, "../st/a.css");
    EXPECT_EQ(project.options().backgroundImage, "..\\images\\back.gif");
    EXPECT_EQ(test::bytesOf(folder / "out/images/a b.png"), "own picture");
    for (const char* file : {"images/a b 2.png", "st/b.css", "pic/c.gif", "tool.zip"}) {
        EXPECT_TRUE(fs::exists(folder / "out" / file)) << file;
    }
    EXPECT_TRUE(hasNote(outcome, "names gone.htm"));
    EXPECT_TRUE(hasNote(outcome, "leads to another help: ms-its:other.chm::/z.htm"));
    // A project with topics keeps its looks, and one of the first format its quotes.
    model::Project other;
    other.setProjectPath(folder / "out/p.tsp");
    other.insertTopic(1, test::topic(1, "Own", "own.htm"));
    std::swap(project, other);
    import({1, false}, false, "Q.*");
    EXPECT_TRUE(hasNote(import({}, false, "p.htm"), "leads to q.htm, which did not come in"));
    EXPECT_EQ(outline(), "1 Own [own.htm]\n..2 Q [q.htm]\n1 Das Büch [p.htm]\n");
    EXPECT_EQ(project.options(), model::ProjectOptions());
    EXPECT_NE(body(3).find("alt='say &quot;hi&quot;'"), Text::npos);
    project.undo();
    EXPECT_EQ(project.outline().count(), 2);
}

TEST_F(HelpImport, BeginsWithTheDefaultPageAndKeepsWhatPagesHold) {
    const auto ours = [](const char* length) {
        return Text("<!-- HTML Topicsmith Custom Code *Do Not Remove* [") + length
               + "] -->\r\na\nb\r\n<!-- HTML Topicsmith End Code *Do Not Remove* -->";
    };
    writeProject("", item("A", "a.htm") + item("B", "b.htm") + item("C", "c.htm"),
                 "Default topic=home.htm#x\n");
    write("home.htm", "<title>Home</title><body>h<object "
                      "classid=clsid:1e2a7bd0-dab9-11d0-b93a-00c04fc99f9e><param name=keyword "
                      "value=K><param name=ALink value=x></object>");
    write("a.htm", ours("3"));
    write("b.htm", ours("4"));
    fs::create_directories(folder / "elsewhere");
    test::writeBytes(folder / "elsewhere/c.htm", "secret");
    const bool canLink = test::makeLink(folder / "elsewhere", folder / "in/link");
    write("c.htm", "<p>c <a href=link/c.htm>l</a>");
    import();
    EXPECT_EQ(outline(), "1 Home [home.htm]\n1 A [a.htm]\n1 B [b.htm]\n1 C [c.htm]\n") << canLink;
    EXPECT_EQ(body(1), "h<object classid=clsid:1e2a7bd0-dab9-11d0-b93a-00c04fc99f9e>"
                       "<param name=ALink value=x></object>");
    EXPECT_EQ(project.outline().at(1).keywords, "K");
    EXPECT_EQ(body(2), "a\nb"); // as it was generated
    EXPECT_EQ(body(3), "a\r\nb");
}

TEST_F(HelpImport, LeavesOutWhatPagesRepeat) {
    Text contents;
    const Text pages = "_abcd_";
    for (std::size_t i = 1; i < 5; ++i) {
        const Text own = pages.substr(i, 1);
        contents += item(own, own + ".htm");
        write(own + ".htm",
              "<meta name=description content='Made by a tool'><body><div class=\"nav\"><a href=\""
                  + pages.substr(i + 1, 1) + ".htm\">Next</a> <b>" + own + " part</b></div>"
                  + "<p class=t>See <a href=\"b.htm\">b</a> and " + own + "</p><p>Only here: " + own
                  + "</p><div class=see>See <a href=" + own + "2.htm>" + own + "2</a></div>"
                  + "<hr><p><a href=" + pages.substr(i - 1, 1) + ".htm>Back to "
                  + pages.substr(i - 1, 1)
                  + "</a> | <a href=a.htm>Top</a></p><p>Manual of everything</p><div id=f>" + own
                  + " <a href=x.htm>X</a> " + "<a href=y.htm>Y</a></div><p>(c) us</p></body>");
    }
    writeProject("", contents);
    auto outcome = import();
    EXPECT_EQ(body(3), "<p class=t>See <a href='..\\html\\b.htm'>b</a> and c</p>"
                       "<p>Only here: c</p><div class=see>See <a href=c2.htm>c2</a></div>");
    EXPECT_EQ(project.outline().at(1).shortDescription, "");
    EXPECT_TRUE(hasNote(outcome, "left out of 4 pages"));
    project.undo();
    import({0, false});
    EXPECT_NE(body(3).find("Manual of everything"), Text::npos);
    EXPECT_NE(body(3).find("(c) us"), Text::npos);
}

TEST_F(HelpImport, LeavesOutEmptyFramesForScriptsAndTrailsOfLinks) {
    Text contents;
    for (const Text own : {"a", "b", "c", "d"}) {
        contents += item(own, own + ".htm");
        write(own + ".htm",
              "<body><div id=\"side-nav\"><div id=\"tree\"></div></div>\n<script>init('" + own
                  + "')</script><div class=p><a name=top></a></div><div class=\"clear\"><p>Text of "
                  + own + "</p></div><hr><p>" + own
                  + "</p>\n<!-- end --><div class=\"navpath\"><ul>"
                  + (own < "c" ? "<li><a href=x" + own + ".htm>" + own + "</a>" : Text())
                  + "<li>By tool</ul></div>\n<hr class=\"foot\"/><script></script></body>");
    }
    writeProject("", contents);
    import();
    const Text frame = "<div class=p><a name=top></a></div><div class=\"clear\"><p>Text of ";
    EXPECT_EQ(body(1), frame + "a</p></div><hr><p>a</p>\n");
    EXPECT_EQ(body(4), frame + "d</p></div><hr><p>d</p>\n");
    // What two of three say is none of all.
    project.undo();
    writeProject("", contents.substr(0, contents.rfind("<LI>")));
    for (const Text own : {"a", "b", "c"}) {
        write(own + ".htm", "<p>" + own + "</p><p>" + (own < "c" ? "Alike" : "Other") + "</p>");
    }
    import();
    EXPECT_EQ(body(1), "<p>a</p><p>Alike</p>");
}

TEST_F(HelpImport, LeavesOutWhatThreeOfFivePagesRepeat) {
    for (const int alike : {3, 2}) {
        Text contents;
        for (int i = 1; i <= 5; ++i) {
            const Text page = std::to_string(i) + ".htm";
            contents += item(page, page);
            write(page, (i <= alike ? "<p>Of us</p><p>\xFC" : "<p>") + page + "</p>");
        }
        contents += item("6", "6.htm") + item("7", "7.htm");
        write("6.htm", "<p>Of us</p><p>6</p>");
        write("7.htm", alike == 3 ? "<p>Of us</p><p>7</p>" : "<p>7</p>");
        writeProject("", contents);
        import();
        EXPECT_EQ(body(1), alike == 3 ? "<p>ü1.htm</p>" : "<p>Of us</p><p>ü1.htm</p>");
        project.undo();
    }
}

TEST_F(HelpImport, PutsABranchBehindWhatLiesInATopic) {
    int position = 0;
    for (const int depth : {1, 2, 1}) {
        const Text name = "own" + std::to_string(++position);
        project.insertTopic(position, test::topic(depth, name.c_str(), (name + ".htm").c_str()));
    }
    // A place of the page that it lies in is no topic, though topics lie in it.
    writeProject("", item("P", "p.htm") + "<UL>" + item("Part", "p.htm#x") + "<UL>"
                         + item("\xDC", "q.htm") + "</UL></UL>");
    write("p.htm", "<p id=x>p");
    write("q.htm", "<p>q");
    import({1});
    EXPECT_EQ(outline(), "1 own1 [own1.htm]\n..2 own2 [own2.htm]\n..2 P [p.htm]\n....3 Ü [q.htm]\n"
                         "1 own3 [own3.htm]\n");
}

TEST_F(HelpImport, CutsPagesWhereContentsLeadIntoThem) {
    writeProject("",
                 item("P", "p.htm") + "<UL>" + item("One", "p.htm#one") + item("Two", "p.htm#two")
                     + item("No", "p.htm#no") + "</UL>" + item("Q", "q.htm"),
                 "");
    write("p.htm", "<body><div><h1>P</h1>start<div><h2><a name=one>One</a></h2>1 <a "
                   "href='#two'>2</a></div><h2 id=two>Two</h2>two</div></body>");
    write("q.htm", "<a href=p.htm#two>t</a>");
    import({}, true);
    EXPECT_EQ(outline(), "1 P [p.htm]\n..2 One [One.htm]\n..2 Two [Two.htm]\n..2 No [No.htm]\n"
                         "1 Q [q.htm]\n");
    EXPECT_EQ(body(1), "<div>start<div></div></div>");
    EXPECT_EQ(body(2), "<a name='one'></a>1 <a href='..\\html\\Two.htm#two'>2</a>");
    EXPECT_EQ(body(3), "<a name='two'></a>two");
    EXPECT_EQ(body(5), "<a href='..\\html\\Two.htm#two'>t</a>");
    project.undo();
    import();
    EXPECT_EQ(project.outline().count(), 2);
    EXPECT_NE(body(1).find("<h2 id=two>Two</h2>two"), Text::npos);
}

TEST_F(HelpImport, BringsWhatStylesName) {
    const Text style = "<style><!-- h1 { background: URL( 'pic/a b.png' ) } b { x: url(#y) }"
                       " --></style>";
    writeProject("", item("P", "d/p.htm") + item("Q", "q.htm") + item("R", "r.htm"));
    write("d/p.htm", "<body><p style=\"color: red; background: url(&quot;../pic/a b.png&quot;)\">"
                     "<style>p { background: url(c(.png) url(gone.png) }</style>"
                     "<i style='background: url(http://e.org/x.png'>p");
    write("q.htm", "<head>" + style + "</head><body>q <img srcset='pic/a%20b.png 2x, x.png 3x'>");
    write("r.htm", style + "<body>r");
    write("pic/a b.png", "a");
    write("d/c(.png", "c");
    import();
    EXPECT_EQ(body(1), "<p style='color: red; background: url(../images/a%20b.png)'>"
                       "<style>p { background: url(../images/c%28.png) url(gone.png) }</style>"
                       "<i style='background: url(http://e.org/x.png'>p");
    EXPECT_EQ(body(2), "q <img srcset='../images/a%20b.png 2x, x.png 3x'>");
    EXPECT_EQ(project.options().cssFile, "../imported.css");
    EXPECT_EQ(test::bytesOf(folder / "out/imported.css"),
              "h1 { background: URL(images/a%20b.png) } b { x: url(#y) }\r\n");
}

TEST_F(HelpImport, TakesTheIndexOfACompiledHelp) {
    writeProject("p.htm\n", item("P", "p.htm"), "Compiled file=h.chm\nIndex file=h.hhk\n");
    write("h.hhk", "<UL>" + item("Word", "p.htm") + "</UL>");
    write("p.htm", "p");
    EXPECT_TRUE(compile::compileProject(folder / "in/h.hhp", {}).isWritten);
    import({}, false, "*", "in/h.chm");
    EXPECT_EQ(project.outline().at(1).keywords, "Word");
}

TEST_F(HelpImport, GivesEachTopicOneContext) {
    writeProject("", item("A", "a.htm") + item("B", "b.htm") + item("C", "c.htm"),
                 "[ALIAS]\nIDH_B=b.htm\nIDH_A=a.htm#x\nIDH_A2=a.htm\nIDH_NONE=a.htm\nIDH_X=x.htm\n"
                 "IDH_C=c.htm\n[MAP]\n#define IDH_A 1\n#define IDH_B 2\n#define IDH_A2 3\n"
                 "#define IDH_X 4\n#define IDH_C 5\n");
    for (const char* page : {"a.htm", "b.htm", "c.htm"}) {
        write(page, "x");
    }
    project.insertTopic(1, test::topic(1, "Own", "own.htm"));
    project.setField(1, &Topic::contextId, "idh_b");
    project.setField(1, &Topic::contextNumber, "5");
    const auto outcome = import();
    const auto contextOf = [this](int position) {
        const Topic& topic = project.outline().at(position);
        return topic.contextId + ' ' + topic.contextNumber;
    };
    EXPECT_EQ(contextOf(2), "IDH_A 1");
    EXPECT_EQ(contextOf(3), "IDH_B_2 2");
    EXPECT_EQ(contextOf(4), " ");
    for (const char* note : {"IDH_A2 was left out", "\"IDH_NONE\" has no number",
                             "IDH_X leads to no page", "IDH_C was left out"}) {
        EXPECT_TRUE(hasNote(outcome, note)) << note;
    }
}
