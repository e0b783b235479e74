#include <gtest/gtest.h>
#include <map>

#include "compile/Container.h"
#include "import/ForeignPage.h"
#include "import/HelpImportFixture.h"
#include "import/PageCutter.h"
#include "import/PageHeadings.h"
#include "model/ProtectedBlock.h"

using namespace importer;
using model::Topic;
using test::item;
using text::Text;
namespace fs = std::filesystem;
using HostileHelp = test::HelpImportFixture;

TEST_F(HostileHelp, WritesNothingOutsideOfTheProject) {
    const Text page = "<img src=../../up.png><img src=/.git/hooks/x.png><img src=con.png>"
                      "<img src=in/link.png><a href=p.tsp>p</a><a href=link/in.txt>l</a>"
                      "<img src=ok.png><a href=html/a.htm.txt>t</a><a href=/.start>s</a>";
    compile::Container container({});
    for (const auto& [name, bytes] : std::map<Text, Text>{{"/a/b/p.htm", page},
                                                          {"/up.png", "u"},
                                                          {"/.git/hooks/x.png", "x"},
                                                          {"/a/b/con.png", "c"},
                                                          {"/a/b/p.tsp", "evil"},
                                                          {"/a/b/link/in.txt", "l"},
                                                          {"/a/b/ok.png", "ok"},
                                                          {"/.start", "s"},
                                                          {"/a/b/in/link.png", "i"},
                                                          {"/../../climb.htm", "<p>c"}}) {
        container.add(name, bytes);
    }
    test::writeBytes(folder / "h.chm", container.pack().value());
    fs::create_directories(folder / "elsewhere");
    fs::create_directories(folder / "out/a/b");
    const bool canLink = test::makeLink(folder / "elsewhere", folder / "out/a/b/link");
    import({}, false, "*", "h.chm");
    EXPECT_TRUE(fs::exists(folder / "out/images/ok.png"));
    EXPECT_FALSE(fs::exists(folder / "out/.git"));
    EXPECT_FALSE(fs::exists(folder / "out/.start"));
    for (const auto& entry : fs::recursive_directory_iterator(folder / "out")) {
        EXPECT_NE(entry.path().extension(), ".tsp");
    }
    EXPECT_FALSE(fs::exists(folder / "out/images/con.png"));
    EXPECT_TRUE(!canLink || fs::is_empty(folder / "elsewhere"));
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        EXPECT_NE(entry.path().filename(), "climb.htm");
    }
    for (const Topic& topic : project.outline()) {
        EXPECT_EQ(topic.fileName.find(".."), Text::npos);
    }
    EXPECT_EQ(fs::exists(folder / "in"), false);
    // Nor does a workshop's project bring in what lies above its folder without its word.
    writeProject("p.htm\n", item("P", "p.htm") + item("Up", "../secret.htm"));
    write("p.htm", "<a href=../secret.htm>s</a><img src='../s.png'>");
    test::writeBytes(folder / "secret.htm", "secret");
    test::writeBytes(folder / "s.png", "secret");
    model::Project fresh;
    fresh.setProjectPath(folder / "out/p.tsp");
    project = std::move(fresh);
    import();
    EXPECT_EQ(body(2), "<p></p>");
    EXPECT_FALSE(fs::exists(folder / "out/images/s.png"));
    // A file that it names above opens that folder, and none above.
    write("up.htm", "<title>Up");
    write("d/beside.htm", "<title>Beside</title><a href=../up.htm>u</a>");
    write("d/e/h.hhp", "[FILES]\n../named.htm\n");
    write("d/named.htm", "<title>Named</title><a href=beside.htm>b</a>");
    model::Project third;
    third.setProjectPath(folder / "out/p.tsp");
    project = std::move(third);
    import({}, false, "*", "in/d/e/h.hhp");
    EXPECT_EQ(outline(), "1 Named [named.htm]\n1 Beside [beside.htm]\n");
}

TEST_F(HostileHelp, EndsWithAnyInput) {
    Text contents;
    Text files;
    constexpr int entries = 120000;
    for (int i = 0; i < entries; ++i) {
        contents += i % 3 == 0 ? "<UL>" : "";
        contents += item("E" + std::to_string(i), i % 2 == 0 ? "p.htm" : "");
        contents += i % 5 == 0 ? "</UL>" : "";
    }
    writeProject("p.htm\n", contents, "[MAP]\n#include \"h.hhp\"\n");
    write("p.htm", Text(100000, '<') + "<a href='" + Text(100000, '%'));
    const auto outcome = import();
    EXPECT_EQ(project.outline().count(), model::TopicOutline::maxTopics);
    EXPECT_GT(outcome.leftOut, 10000);
    EXPECT_TRUE(hasNote(outcome, "more than 100000 entries"));
    for (const Text& bytes :
         {Text(), Text("x"), Text("ITSF"), Text(4000, '\xFF'), "ITSF" + contents}) {
        write("bad", bytes);
        Text problem;
        EXPECT_EQ(HelpSource::open(folder / "in/bad", problem), nullptr);
        EXPECT_FALSE(problem.empty());
    }
    Text problem;
    EXPECT_EQ(HelpSource::open(folder / "missing", problem), nullptr);
    EXPECT_EQ(HelpSource::open(folder.path(), problem), nullptr);
}

TEST(HostilePage, GivesNoMoreThanItHolds) {
    Text page;
    model::appendProtectedBlock(page, "<p>b", text::CodePage());
    constexpr int items = 2000;
    for (const char* item : {"<li><a href=\"a.htm\"></a> - ", "<li><a href=\"a.htm\">"}) {
        Text listing = page;
        for (int i = 0; i < items; ++i) {
            listing += item;
        }
        std::size_t size = 0;
        for (const ListedPage& each : readForeignPage(listing + "</a> - x", 1252).listed) {
            size += each.address.size() + each.description.size();
        }
        EXPECT_GT(size, 0U);
        EXPECT_LT(size, listing.size());
    }
}

/// In a time that grows with its length, or this takes hours.
TEST(HostilePage, IsReadAndCutHoweverManyTagsAreOpen) {
    constexpr std::size_t tags = 200'000;
    const auto repeated = [](const Text& tag) {
        Text all;
        for (std::size_t i = 0; i < tags; ++i) {
            all += tag;
        }
        return all;
    };
    const Text cut = cutAt(repeated("<b>") + repeated("</i>"), {}).front();
    EXPECT_TRUE(cut == repeated("<b>") + repeated("</b>"));
    EXPECT_EQ(firstHeading(repeated("<h1>") + repeated("</h1>") + "<h2>x</h2>"), "x");
}
