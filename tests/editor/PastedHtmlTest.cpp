#include "editor/PastedHtml.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

#include "editor/Escapes.h"
#include "editor/ProjectPictures.h"
#include "editor/TagStructure.h"
#include "support/TestFiles.h"
#include "text/Address.h"
#include "text/HtmlReader.h"

using namespace editor;
using test::bytesOf;

namespace {

/// A project that has one picture, and every page.
struct OnePicture : PasteTargets {
    Text picture(TextView address) override {
        return address.ends_with("dot.png") ? R"(..\images\dot.png)" : "";
    }
    Text page(TextView address) override {
        return address.starts_with("file:") ? R"(..\html\a.htm)" : "";
    }
};

Text pasted(TextView html) {
    OnePicture targets;
    return pastedMarkUp(html, targets).value_or("(text)");
}

std::string sample(const char* name) {
    return bytesOf(test::sourceFolder() / "tests/data/paste" / name);
}

} // namespace

TEST(PastedHtml, OfABrowserAndAWordProcessorIsWhatAnAuthorWouldWrite) {
    const Text table =
        test::lines({"<table border='1' cellpadding='6'>", "CAPTION<tr>", "<th>Name</th>",
                     "<th>Size</th>", "</tr>", "<tr>", "<td>A</td>", "<td>1</td>", "</tr>", "<tr>",
                     "<td colspan='2'>both <code>cells</code></td>", "</tr>", "</table>"});
    Text expected = test::lines(
        {"<h1>Caf\u00E9 set-up</h1>",
         "<p>Choose <b>File</b>, then <i>Open&nbsp;recent</i>, or press <code>Ctrl+O</code>. <b>It "
         "takes</b> 10&nbsp;s; a &lt; b &amp; c.</p>",
         "<h2>Steps</h2>", "<ol>",
         "<li>First <a href='https://example.org/a?x=1&amp;y=2'>page</a></li>", "<li>Second",
         "<ul>", "<li>inner one</li>", "<li>inner two</li>", "</ul></li>", "</ol>"});
    expected +=
        table
        + "<pre>if (a &lt; b) {\r\n    go();\r\n}</pre>\r\n<blockquote>\r\n"
          "<p>Quoted trick and <a href='mailto:a@example.org'>mail</a></p>\r\n</blockquote>\r\n"
          "<p>Picture: <img src='..\\images\\dot.png' width='8' height='8' alt='A red dot'> "
          "and <a href='https://example.org/far.png'>Far away</a>.</p>";
    const auto with = [&expected](TextView mark, TextView text) {
        Text made = expected;
        return made.replace(made.find(mark), mark.size(), text);
    };
    EXPECT_EQ(pasted(sample("browser.html")), with("CAPTION", "<caption>Sizes</caption>\r\n"));
    // It has no captions, hides nothing, and breaks lines before points.
    Text other = pasted(sample("word-processor.html"));
    EXPECT_TRUE(other.starts_with("<p>hidden</p>\r\n<h1>"));
    EXPECT_TRUE(tagFaults(other).empty());
    EXPECT_NE(other.find("<p>Sizes</p>\r\n" + Text(table).replace(table.find("CAPTION"), 7, "")),
              Text::npos);
    EXPECT_EQ(other.find("style"), Text::npos);
}

TEST(PastedHtml, LeavesFontsAndMarginsBehind) {
    EXPECT_EQ(pasted(sample("word-processor-fonts.html")),
              test::lines({"<h1>Brewing caf\u00E9 tea</h1>",
                           "<p>Take <b>one spoon</b> &amp; <i>hot water</i>; see <a "
                           "href='https://example.org/tea?a=1&amp;b=2'>the page</a>.</p>",
                           "<ol>", "<li>First</li>", "<li>Second <b>bold</b></li>", "</ol>", "<ol>",
                           "<li>inner</li>", "</ol>", "<table border='1' cellpadding='6'>", "<tr>",
                           "<td>Sort</td>", "<td>Minutes</td>", "</tr>", "<tr>", "<td>Green</td>",
                           "<td>3</td>", "</tr>", "</table>"})
                  + "<p>End.</p>");
}

TEST(PastedHtml, SeesFormatsInStylesAndMendsWhatIsDamaged) {
    const std::pair<const char*, const char*> rows[] = {
        {"just <span style='color:red'>text</span><div>and a line</div>", "(text)"},
        {"<b style='font-weight:normal'><p>one</p><p>two &quot;\xC3\xA9&quot;</p></b>",
         "<p>one</p>\r\n<p>two &quot;\u00E9&quot;</p>"},
        {"a <span style=\"font-weight:700\">b <i>c</span> d</i>", "a <b>b <i>c</i></b> d"},
        {"<s>a</s> <strike>b <u>\xC3\xA9</u></strike> <span style='text-decoration: underline "
         "line-through'>d</span> <del>e",
         "<s>a b <u>\u00E9</u> d e</s>"},
        {"<ul><li>a<ul><li>b</ul><li>c</ul>",
         "<ul>\r\n<li>a\r\n<ul>\r\n<li>b</li>\r\n</ul></li>\r\n<li>c</li>\r\n</ul>"},
        {"<li>a</li>text<td>cell",
         "<ul>\r\n<li>a</li>\r\n</ul>\r\n<p>text</p>\r\n<table border='1' cellpadding='6'>\r\n"
         "<tr>\r\n<td>cell</td>\r\n</tr>\r\n</table>"},
        {"<h2><b>Bold</b> <a href='java\nscript:x'>head</a></h2>", "<h2>Bold head</h2>"},
        {"<a href='ht\ntps://x/&#10;a\t'>net</a>", "<a href='https://x/a'>net</a>"},
        {"<a href='file:///p/html/a.htm' title=x>in</a> <a href=\"http://x/'y\">out</a>",
         "<a href='..\\html\\a.htm'>in</a> <a href='http://x/&#39;y'>out</a>"},
        {"<img src=x.gif alt='lost &amp; found'><script>bad()</script><svg><p>no</svg>", "(text)"},
        {"<p>one<br>two<br><br>three<br></p>", "<p>one<br>\r\ntwo</p>\r\n<p>three</p>"},
    };
    for (const auto& [html, expected] : rows) {
        EXPECT_EQ(pasted(html), expected) << html;
    }
    EXPECT_EQ(escapedText("\"a\" <b> &amp; \u00E9"), "\"a\" &lt;b&gt; &amp;amp; \u00E9");
}

TEST(PastedHtml, IsWellFormedWhateverComes) {
    constexpr TextView parts[] = {"<p>",
                                  "</p>",
                                  "<ul>",
                                  "</ul>",
                                  "<li>",
                                  "<td>",
                                  "</table>",
                                  "<th>",
                                  "<b>",
                                  "</b>",
                                  "<a href='http://x'>",
                                  "</a>",
                                  "<h1>",
                                  "</h1>",
                                  "<pre>",
                                  "</pre>",
                                  "<tr>",
                                  "<dt>",
                                  "<dd>",
                                  "<blockquote>",
                                  "<img src=dot.png>",
                                  "<br>",
                                  "x \u00E9",
                                  "<hr>",
                                  "<div>",
                                  "</div>"};
    std::mt19937 random(7); // NOLINT: the same each time
    for (int round = 0; round < 500; ++round) {
        Text html;
        for (int part = 0; part < 14; ++part) {
            html += parts[random() % std::size(parts)];
        }
        const Text made = pasted(html);
        ASSERT_TRUE(tagFaults(made).empty()) << html << '\n' << made;
    }
    Text deep;
    for (int i = 0; i < 20000; ++i) {
        deep += "<ul><li><b>";
    }
    EXPECT_LT(pasted(deep + "x").size(), 2000U);
    // More elements than are counted: the ends of the items' paragraphs are not seen.
    Text items;
    for (int i = 0; i < 10'000; ++i) {
        items += i < 300 ? "<b>" : "<p style='mso-list:l0 level9 lfo1'>x";
    }
    EXPECT_NE(pasted(items), "");
    Text blanks;
    for (int i = 0; i < 500'000; ++i) {
        blanks += "\u00A0";
    }
    EXPECT_EQ(pasted("<h1>a</h1><p>" + blanks + "</p>"), "<h1>a</h1>");
}

TEST(PastedHtml, BringsNothingButPlainMarkUpOutOfDamagedClips) {
    const std::set<Text> elements = {
        "h1",  "h2", "h3",  "h4", "h5", "h6",  "p",    "ul",      "ol",         "li",
        "dl",  "dt", "dd",  "b",  "i",  "u",   "tr",   "td",      "th",         "sub",
        "sup", "a",  "img", "br", "hr", "pre", "code", "caption", "blockquote", "table"};
    const std::set<Text> attributes = {"href",   "src",         "alt",     "width",  "height",
                                       "border", "cellpadding", "colspan", "rowspan"};
    constexpr TextView hostile[] = {
        "<p onclick=x() style='background:url(http://x)'>",
        "<a href=' JaVa&#115;cript&colon;x()' onmouseover=x>a</a>",
        "<a href=\"java&Tab;script:x\">b</a><a href='vbscript:x'>c</a>",
        "<a href='data:text/html,<script>x</script>'>d</a><a href='file:///etc/passwd'>e</a>",
        "<img src=x onerror=x><img src='javascript:x'><svg/onload=x><p>in</svg>",
        "<table><tr><td><table><tr><td>in<table><caption>c<td>",
        "<!--",
        "<!--[if mso]><p>",
        "-->",
        "<![CDATA[",
        "<script>",
        "</script",
        "<title>",
        "<p ",
        "\"",
        "'",
        "&#0;&#x1F;&lt;script&gt;",
        "<base href='//x'><meta http-equiv=refresh>",
        "<p dir=rtl>\u05E9\u05DC\u05D5\u05DD \u200F1\u202E</p>",
        "<style>p{}",
        "<o:p>x</o:p>",
        "<a href='http://x/\" onclick=\"x'>f</a>",
        "<a href=\"http://x/' onclick='x\">g</a>",
        "<img src='x/dot.png' alt=\"' onerror='x\" width='1\" onload=x'>"};
    std::mt19937 random(23); // NOLINT: the same each time
    const auto below = [&random](std::size_t limit) {
        return random() % std::max(limit, std::size_t(1));
    };
    const std::string samples[] = {sample("browser.html"), sample("word-processor.html"),
                                   sample("word-processor-fonts.html")};
    for (int round = 0; round < 250; ++round) {
        Text html = samples[below(std::size(samples))];
        for (int change = 0; change < 6; ++change) {
            const std::size_t at = below(html.size());
            const std::size_t length = below(200);
            switch (below(4)) {
            case 0:
                html.erase(at, length);
                break;
            case 1:
                html.insert(below(html.size()), html.substr(at, length));
                break;
            case 2:
                html[at] = "<>\"'&=/ "[below(8)];
                break;
            default:
                html.insert(at, hostile[below(std::size(hostile))]);
            }
        }
        const Text made = pasted(html);
        ASSERT_TRUE(tagFaults(made).empty()) << html << '\n' << made;
        for (text::HtmlReader reader(made); reader.next();) {
            if (reader.isText()) {
                continue;
            }
            ASSERT_TRUE(elements.contains(reader.lowerName())) << made;
            for (const auto& [name, value] : reader.attributes()) {
                const TextView address = name == "href" ? value.value_or("") : "http://";
                ASSERT_TRUE(attributes.contains(text::lowerAscii(name))) << made;
                ASSERT_TRUE(address.starts_with("http") || address.starts_with("mailto:")
                            || address == "..\\html\\a.htm")
                    << made;
            }
        }
    }
}

TEST(ProjectPictures, TakesPicturesInAndNothingElse) {
    const test::TemporaryFolder folder;
    const test::Path project = folder / "project";
    std::filesystem::create_directories(project / "html");
    test::writeBytes(project / "html" / "a.htm", "page");
    test::writeBytes(folder / u8"Schl\u00FCssel #1.bmp", test::bitmap(4, 3));
    test::writeBytes(folder / "secret.png", "no picture");
    ProjectPictures pictures(project, text::CodePage());
    const auto url = [](const test::Path& path) { return text::fileAddress(Text(path)); };
    const Text taken = pictures.picture(url(folder / u8"Schl\u00FCssel #1.bmp"));
    EXPECT_EQ(taken, "..\\images\\Schl\u00FCssel-1.bmp");
    EXPECT_EQ(bytesOf(project / "images" / u8"Schl\u00FCssel-1.bmp"), test::bitmap(4, 3));
    EXPECT_EQ(pictures.picture(url(project / "images" / u8"Schl\u00FCssel-1.bmp")), taken);
    EXPECT_EQ(pictures.freeName("Schl\u00FCssel 1", test::bitmap(5, 5)), "Schl\u00FCssel-1-2.bmp");
    EXPECT_EQ(pictures.picture(url(folder / "secret.png")), "");
    test::writeBytes(folder / "plain.bmp", test::bitmap(6, 6));
    const test::Path here = relative(folder / "plain.bmp");
    EXPECT_EQ(pictures.picture("file://" + Text(here.generic_string())), "") << "another machine's";
    EXPECT_EQ(pictures.picture("data:image/gif;base64,R0lGODdhAgADAAAAACwAAAAA"),
              "..\\images\\picture.gif");
    EXPECT_EQ(pictures.picture("data:image/png;base64,bm8gcGljdHVyZQ=="), "");
    EXPECT_EQ(pictures.page(url(project / "html" / "a.htm") + "#top"), "..\\html\\a.htm#top");
    EXPECT_EQ(pictures.page(url(folder / "secret.png")), "");
    EXPECT_NE(pictures.store("picture.gif", "GIF89a other"), std::error_code());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(project / "images"), {}), 2);
}

TEST(ProjectPictures, NothingPastedReachesOutOfTheFolder) {
    const test::TemporaryFolder folder;
    const test::Path project = folder / "project";
    std::filesystem::create_directories(project / "html");
    std::filesystem::create_directories(folder / "outside");
    test::writeBytes(folder / "outside" / "p.bmp", test::bitmap(4, 3));
    test::writeBytes(folder / "outside" / "a.htm", "page");
    test::writeBytes(project / "html" / "a.htm", "page");
    const Text base = text::fileAddress(Text(folder.path()));
    const Text folders[] = {"..",   "%2e%2e", ".",  "outside", "project",
                            "html", "images", "C:", "%00",     ""};
    const Text files[] = {"p.bmp", "p.bmp", "a.htm", "a.htm#../x", "..", "passwd"};
    const Text separators[] = {"/", "/", "/", "\\", "%2F", "%5C"};
    const Text starts[] = {
        base + "/outside/", base + "/project/html/",  base + "/project/", "", "/", "file:",
        "file://x/",        "data:image/bmp;base64,", "javascript:"};
    std::mt19937 random(11); // NOLINT: the same each time
    int links = 0;
    for (int round = 0; round < 3000; ++round) {
        ProjectPictures pictures(project, text::CodePage());
        Text address = starts[random() % std::size(starts)];
        for (std::size_t left = random() % 4; left > 0; --left) {
            address += folders[random() % std::size(folders)];
            address += separators[random() % std::size(separators)];
        }
        address += files[random() % std::size(files)];
        const Text made =
            pastedMarkUp("<p><a href=\"" + address + "\">x</a><img src=\"" + address + "\">",
                         pictures)
                .value_or("");
        for (const char* start : {"href='", "src='"}) {
            const std::size_t found = made.find(start);
            if (found == Text::npos) {
                continue;
            }
            ++links;
            const TextView rest = TextView(made).substr(found + TextView(start).size());
            const TextView given = rest.substr(0, rest.find('\''));
            const bool isOwn = given.starts_with("..\\html\\") || given.starts_with("..\\images\\");
            ASSERT_TRUE(isOwn) << address << ": " << made;
            const TextView path = given.substr(2, given.find('#') - 2);
            ASSERT_EQ(path.find(".."), TextView::npos) << address << ": " << made;
        }
    }
    EXPECT_GT(links, 50) << "refusing everything would be no way";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "outside"), {}), 2);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(project), {}), 2);
    EXPECT_EQ(bytesOf(folder / "outside" / "p.bmp"), test::bitmap(4, 3));
}
