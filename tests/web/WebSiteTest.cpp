#include "web/WebSite.h"

#include <functional>
#include <gtest/gtest.h>

#include "model/Variables.h"
#include "platform/FileState.h"
#include "support/TestFiles.h"
#include "web/PackedScript.h"
#include "web/SearchIndex.h"
#include "web/SiteData.h"

namespace fs = std::filesystem;
using test::bytesOf;
using test::topic;
using test::writeBytes;

namespace {

class WebSite : public testing::Test {
protected:
    web::SiteReport generate(model::TopicOutline outline, model::ProjectOptions options = {},
                             bool isClean = false) {
        model::Project project;
        project.replace(std::move(outline), std::move(options), source / "p.tsp");
        return web::generateSite(project, {site, folder / "program", isClean});
    }
    bool has(const fs::path& place) const { return fs::exists(site / place); }
    std::string page(const fs::path& place) const { return bytesOf(site / place); }
    bool pageHas(const fs::path& place, std::string_view what) const {
        return page(place).find(what) != std::string::npos;
    }

    /// The words of the search's index, with the pages of each and whether they have it often.
    std::map<std::string, std::string> indexWords(int pageCount) const {
        std::map<std::string, std::string> all;
        const auto letters =
            web::LetterCode::parse(web::scriptTexts(page("site/search.js")).front());
        for (int i = 0; has("site/words/" + std::to_string(i) + ".js"); ++i) {
            const std::string script = page("site/words/" + std::to_string(i) + ".js");
            const auto words = web::wordsOf(web::bitsIn(script).value(), letters.value(),
                                            static_cast<std::size_t>(pageCount));
            for (const web::IndexWord& word : words.value()) {
                std::string& pages = all[word.word];
                EXPECT_TRUE(pages.empty()) << word.word;
                for (const web::Posting& posting : word.postings) {
                    pages += ' ' + std::to_string(posting.page) + (posting.weight > 1 ? "!" : "");
                }
            }
        }
        return all;
    }

    /// All files of a site but what it knows of its last run.
    static std::map<std::string, std::string> filesOf(const fs::path& site) {
        std::map<std::string, std::string> all;
        for (const fs::directory_entry& file : fs::recursive_directory_iterator(site)) {
            const std::string place = file.path().lexically_relative(site).generic_string();
            if (file.is_regular_file() && place != "site/files.txt") {
                all[place] = bytesOf(file.path());
            }
        }
        return all;
    }

    test::TemporaryFolder folder;
    const fs::path source = folder / "source";
    const fs::path site = folder / "out/site";

    void SetUp() override { fs::create_directories(source / "Images"); }
};

} // namespace

TEST_F(WebSite, LinksLeadToPagesHoweverTheyAreSpelt) {
    writeBytes(source / u8"Images/Bild \u00E9.PNG", "x");
    writeBytes(source / "Images/film.MP4", "x");
    writeBytes(source / "Images/d.png", "x");
    writeBytes(source / "Images/wide.png", "x");
    const auto report = generate(test::outlineOf(
        {topic(
             1, "Start", "start.htm",
             "<a href='..\\html\\C# Caf\u00E9.htm'>1</a><A HREF=\"SUB/Deep.HTM#An &amp; Aus\">2</a>"
             "<a href='C%23%20Caf%C3%A9.htm#x'>3</a><a href='#here'>4</a>"
             "<img src='..\\images\\bild \u00E9.png'><video><source src='..\\images\\film.mp4'>"
             "</video><a href='https://example.org/a\\b'>5</a>"
             "<a href='missing.htm'>6</a><p title='..\\html\\start.htm'>7"
             "<b id='Own'><a href='#OWN'>9</a><a href='sub\\deep.htm#way%20in'>10</a>"),
         topic(2, "Caf\u00E9 &amp; C#", "C# Caf\u00E9.htm"),
         topic(3, "A < B", "sub\\deep.htm", "<a href='../start.htm'>8</a><a name='Way In'>"),
         topic(1, "D <img src='..\\images\\d.png'>", "d.htm",
               "<img srcset='http://x.example/1.png, ../Images/wide.png 2x'>")}));
    EXPECT_TRUE(report.failures.empty());
    const std::string start = page("html/start.htm");
    for (const char* wanted :
         {"<a href='C%23%20Caf%C3%A9.htm'>1</a><A HREF=\"sub/deep.htm#An%20&amp;%20Aus\">2</a>",
          "<a href='C%23%20Caf%C3%A9.htm#x'>3</a><a href='#here'>4</a>",
          "<img src='../Images/Bild%20%C3%A9.PNG'><video><source src='../Images/film.MP4'>"
          "</video><a href='https://example.org/a\\b'>5</a>",
          "<a href='missing.htm'>6</a><p title='..\\html\\start.htm'>7",
          "<a href='#Own'>9</a><a href='sub/deep.htm#Way%20In'>10</a>",
          "<link rel=\"next\" href=\"C%23%20Caf%C3%A9.htm\">"}) {
        EXPECT_NE(start.find(wanted), std::string::npos) << wanted << '\n' << start;
    }
    EXPECT_TRUE(has(fs::path(u8"Images/Bild é.PNG")) && has("Images/film.MP4"));
    EXPECT_TRUE(pageHas(u8"html/C# Café.htm", "<title>Caf\u00E9 &amp; C# - Help</title>"));
    EXPECT_TRUE(pageHas("html/sub/deep.htm", "<h1>A &lt; B</h1>\r\n<a href='../start.htm'>8</a>"));
    EXPECT_TRUE(pageHas("html/sub/deep.htm", "<link rel=\"up\" href=\"../C%23%20Caf%C3%A9.htm\">"));
    EXPECT_TRUE(pageHas("html/d.htm", "<h1>D <img src='../Images/d.png'></h1>"));
    EXPECT_TRUE(has("Images/d.png") && has("Images/wide.png"));
    EXPECT_TRUE(pageHas("index.html", "<base href=\"html/start.htm\">"));
}

TEST_F(WebSite, PagesWithColoursOfTheirOwnStayAsOnPaper) {
    generate(test::outlineOf({topic(1, "A", "a.htm", "<p style='margin: 0'>"),
                              topic(1, "B", "b.htm", "<P STYLE='COLOR: #000080'>"),
                              topic(1, "C", "c.htm", "<td BGCOLOR=white>")}));
    EXPECT_FALSE(pageHas("html/a.htm", "class=\"ts-paper\""));
    EXPECT_TRUE(pageHas("html/b.htm", "class=\"ts-paper\""));
    EXPECT_TRUE(pageHas("html/c.htm", "class=\"ts-paper\""));
}

TEST_F(WebSite, ShowsWhatTheVariablesStandFor) {
    model::ProjectOptions options;
    setVariables(options, {{"version", "1.2 <i>beta</i>"}, {"next", "b.htm"}});
    generate(test::outlineOf({topic(1, "A", "a.htm", "<p>{{version}} {{x}} <a href='{{next}}'>"),
                              topic(1, "B", "b.htm")}),
             options);
    EXPECT_TRUE(pageHas("html/a.htm", "<p>1.2 <i>beta</i> {{x}} <a href='b.htm'>"))
        << page("html/a.htm");
}

TEST_F(WebSite, NamesThatCollideOrClimbAreHandledAsInTheHelp) {
    writeBytes(folder / "secret.txt", "x");
    fs::create_directories(source / "site");
    writeBytes(source / "site/style.css", "body {}");
    model::ProjectOptions options;
    options.cssFile = "../site/style.css";
    const auto report =
        generate(test::outlineOf(
                     {topic(1, "A", "a.htm", "<a href='../../secret.txt'>s</a><a href='../p.tsp'>"),
                      topic(1, "B", "A.HTM"), topic(1, "C", "../c.htm"), topic(2, "D", ""),
                      topic(2, "I", "index.html")}),
                 options);
    EXPECT_TRUE(has("html/A 1.htm"));
    EXPECT_TRUE(has("html/index.html"));
    EXPECT_FALSE(has("c.htm") || has("secret.txt") || has("p.tsp"));
    ASSERT_EQ(report.failures.size(), 2U);
    EXPECT_EQ(report.failures[0].reason,
              "the file name does not stay inside the page folder (topic 3)");
    EXPECT_EQ(report.failures[1].reason, "is the name of two files of the site");
    EXPECT_FALSE(page("site/style.css") == "body {}");
    EXPECT_TRUE(pageHas("contents.html", "<li>C\r\n<ul><li>D</li>"));
}

TEST_F(WebSite, OnlyWhatChangedIsWrittenAndOnlyOursIsRemoved) {
    const auto outline = test::flatOutline(3);
    writeBytes(source / "Images/p.png", "x");
    auto withPicture = outline;
    withPicture.at(3).body = "<img src='..\\images\\p.png'>";
    generate(withPicture);
    writeBytes(site / "html/mine.htm", "mine");
    const auto time = fs::last_write_time(site / "html/t1.htm") - std::chrono::hours(1);
    fs::last_write_time(site / "html/t1.htm", time);
    EXPECT_NE(generate(withPicture).text.find("Files written: 1\r\n"), std::string::npos);
    EXPECT_NE(generate(withPicture).text.find("Files written: 0\r\n"), std::string::npos);

    const auto report = generate(test::flatOutline(2));
    EXPECT_FALSE(has("html/t3.htm") || has("Images"));
    EXPECT_TRUE(has("html/t2.htm"));
    EXPECT_EQ(page("html/mine.htm"), "mine");

    auto renamed = test::flatOutline(2);
    renamed.at(2).fileName = "mine.htm";
    const auto refused = generate(renamed);
    ASSERT_EQ(refused.failures.size(), 1U);
    EXPECT_EQ(refused.failures[0].reason, "is there already, and is no file of this site");
    EXPECT_EQ(page("html/mine.htm"), "mine");

    writeBytes(site / "html/t1.htm", "mine, too");
    generate(renamed, {}, true);
    EXPECT_TRUE(pageHas("html/t1.htm", "<h1>Topic 1</h1>"));
    EXPECT_EQ(page("html/mine.htm"), "mine");
}

TEST_F(WebSite, WhatIsNotMadeAgainIsWhatItWouldBecome) {
    auto outline = test::outlineOf(
        {topic(1, "Start \u00C4", "start.htm",
               "<p>{{name}}<a href='two.htm#OWN'>2</a><img src='../images/q.png'>"),
         topic(2, "Two", "two.htm", "<p id=own><img src='..\\images\\p.png'>"),
         topic(2, "Three", "sub/three.htm",
               "<a href='../start.htm'><img src='../../images/q.png'>"),
         topic(1, "Four", "four.htm",
               "<p style='background: url(../images/r.png)'><img src='../images/q.png'>")});
    model::ProjectOptions options;
    options.cssFile = "../s.css";
    writeBytes(source / "s.css", "p {}");
    const std::vector<std::pair<const char*, std::function<void()>>> edits = {
        {"nothing", [] {}},
        {"a text", [&] { outline.at(4).body += "<p>More"; }},
        {"a place on another page", [&] { outline.at(2).body = "<p id=Own><b>"; }},
        {"a picture that comes", [&] { writeBytes(source / "Images/q.png", "q"); }},
        {"a picture with other letters", [&] { writeBytes(source / "Images/P.PNG", "p"); }},
        {"the picture's page", [&] { outline.at(2).body += "<img src='../images/p.png'>"; }},
        {"nobody wants it", [&] { outline.at(2).body = "<p>"; }},
        {"a picture that goes", [&] { fs::remove(source / "Images/q.png"); }},
        {"a variable",
         [&] {
             setVariables(options, {{"name", "new"}});
         }},
        {"a title", [&] { outline.at(2).title = "Zwei"; }},
        {"a level", [&] { outline.at(3).level = "1"; }},
        {"a description", [&] { outline.at(3).shortDescription = "About"; }},
        {"a context", [&] { outline.at(3).contextNumber = "7", outline.at(3).contextId = "ID"; }},
        {"a style",
         [&] { writeBytes(source / "s.css", "@media (prefers-color-scheme: dark) {}"); }},
        {"the copyright", [&] { options.copyrightText = "\u00A9", options.showCopyright = true; }},
        {"the links", [&] { options.navigationButtons = {}; }},
        {"the language", [&] { options.languageTag = "he"; }},
        {"a page that goes", [&] { outline.at(3).fileName = ""; }},
    };
    for (const auto& [what, edit] : edits) {
        edit();
        generate(outline, options);
        const auto again = filesOf(site);
        fs::remove_all(site);
        generate(outline, options);
        EXPECT_EQ(again, filesOf(site)) << what;
    }
    outline.at(2).body = "<p>Edited";
    const auto report = generate(outline, options).text;
    EXPECT_NE(report.find("Files written: 7\r\n"), std::string::npos) << report;
    writeBytes(site / "html/four.htm", "somebody's");
    generate(outline, options);
    EXPECT_TRUE(pageHas("html/four.htm", "<h1>Four</h1>"));
}

TEST_F(WebSite, ALinkInAPagesPlaceLeadsItNowhere) {
    writeBytes(folder / "precious.txt", "x");
    auto outline = test::flatOutline(2);
    generate(outline);
    fs::remove(site / "html/t1.htm");
    static_cast<void>(test::makeLink(folder / "precious.txt", site / "html/t1.htm"));
    fs::remove(site / "html/t2.htm");
    fs::create_hard_link(folder / "precious.txt", site / "html/t2.htm");
    EXPECT_TRUE(generate(outline).failures.empty());
    EXPECT_EQ(bytesOf(folder / "precious.txt"), "x");
    EXPECT_TRUE(pageHas("html/t1.htm", "<h1>Topic 1</h1>"));
    EXPECT_TRUE(pageHas("html/t2.htm", "<h1>Topic 2</h1>"));
}

TEST_F(WebSite, ASearchThatIsChangedHasTheWordsOfANewOne) {
    auto outline = test::flatOutline(30);
    for (int i = 1; i <= 30; ++i) {
        outline.at(i).body = "<p>All of only" + std::to_string(i) + " and word"
                             + std::to_string(i / 3) + ", caf\u00E9s \u6771\u4EAC\u90FD.</p>";
        outline.at(i).keywords = "key" + std::to_string(i % 4);
    }
    generate(outline);
    outline.at(7).body =
        "<p>Zebra, \u041F\u0440\u0438\u0432\u0435\u0442, aardvark \u4EAC; "
        "word9 word9 word9 all all all d'un l\u2019\u00E9t\u00E9 re\u00ADturn a''b o' 'o "
        "rock'n'roll x'\u6771 \u6771'y x\u6771\u4EACz "
        + std::string(60, 'l') + "'ong " + std::string(600, 'w') + "orse</p>";
    outline.at(30).keywords = "key9; key1";
    const std::string report = generate(outline).text;
    EXPECT_NE(report.find("Files unchanged: 36\r\n"), std::string::npos) << report;
    const auto changed = indexWords(30);
    EXPECT_EQ(changed.at("word9"), " 7! 27 28 29");
    EXPECT_FALSE(changed.contains("only7"));
    generate(outline, {}, true);
    EXPECT_EQ(changed, indexWords(30));

    for (int i = 0; i < 5000; ++i) { // more than one file has
        outline.at(30).body += " only" + std::to_string(i * 7919);
    }
    generate(outline, {}, true);
    const auto before = filesOf(site);
    outline.at(8).body = "All other.";
    generate(outline);
    int pieces = 0;
    int kept = 0;
    for (const auto& [name, bytes] : filesOf(site)) {
        const bool isPiece = name.starts_with("site/words/") || name.starts_with("site/texts/");
        pieces += isPiece ? 1 : 0;
        kept += isPiece && before.contains(name) && before.at(name) == bytes ? 1 : 0;
    }
    EXPECT_GT(pieces, 4);
    EXPECT_GE(kept, pieces / 2) << "an edit leaves the rest in its place";
    for (const char* file : {"site/words/0.js", "site/texts/0.js", "site/texts/1.js",
                             "site/state.txt", "site/parts.js"}) {
        std::string bytes = page(file);
        const auto time = fs::last_write_time(site / file);
        bytes[bytes.size() / 2] ^= 1; // neither size nor time tell
        writeBytes(site / file, bytes);
        fs::last_write_time(site / file, time);
        const bool isRead = std::string_view(file) != "site/texts/1.js";
        outline.at(8).body += "x";
        generate(outline);
        EXPECT_TRUE(page(file) != bytes || !isRead) << file;
        fs::remove(site / file);
        outline.at(8).body += "x";
        generate(outline);
        ASSERT_TRUE(has(file)) << file;
        const auto now = indexWords(30);
        generate(outline, {}, true);
        EXPECT_EQ(now, indexWords(30)) << file;
    }
}

TEST_F(WebSite, AListFromElsewhereNamesNoFilesOutside) {
    generate(test::flatOutline(1));
    writeBytes(folder / "out/precious.txt", "x");
    const auto size = std::to_string(fs::file_size(folder / "out/precious.txt"));
    const auto facts = platform::FileFacts(*platform::fileFacts(folder / "out/precious.txt"));
    writeBytes(site / "site/files.txt", bytesOf(site / "site/files.txt") + "1\t" + size + "\t"
                                            + std::to_string(facts.written.count())
                                            + "\t../precious.txt\n");
    generate(test::flatOutline(1));
    EXPECT_TRUE(fs::exists(folder / "out/precious.txt"));

    writeBytes(site / "site/files.txt", "somebody's list");
    EXPECT_EQ(generate(test::flatOutline(2)).failures.size(), 1U);
    EXPECT_EQ(page("site/files.txt"), "somebody's list");
    EXPECT_FALSE(has("html/t2.htm"));
}

TEST_F(WebSite, TheProjectsOwnFolderIsNoPlaceForIt) {
    model::Project project;
    writeBytes(source / "p.tsp", "x");
    project.replace(test::flatOutline(1), {}, source / "p.tsp");
    EXPECT_TRUE(web::siteFolderFault(source, project));
    EXPECT_TRUE(web::siteFolderFault(source / "p.tsp", project));
    EXPECT_FALSE(web::siteFolderFault(source / "web", project));
}

TEST_F(WebSite, ContextsAndKeywordsComeAsTheScriptReadsThem) {
    auto outline =
        test::outlineOf({topic(1, "\"A\\", "a.htm"), topic(1, "\u00C9t\u00E9", "b.htm")});
    outline.at(1).contextId = "IDH_A";
    outline.at(1).contextNumber = "0x97";
    outline.at(2).contextId = "idh_a";
    outline.at(2).contextNumber = "0152";
    outline.at(1).keywords = "zebra; \u00C4pfel;";
    outline.at(2).keywords = "\u00E4pfel; banana";
    generate(outline);
    EXPECT_TRUE(pageHas("site/contexts.js", "{\n\"151\":1,\n\"152\":2},{\n\"idh_a\":1}"));
    EXPECT_TRUE(pageHas("site/contents.js", R"([1,"\"A\\","a.htm"])"));
    EXPECT_TRUE(
        pageHas("site/keywords.js", "[\"\u00C4pfel\",1,2],\n[\"banana\",2],\n[\"zebra\",1]"));
}
