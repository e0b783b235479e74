#include <gtest/gtest.h>

#include "generate/ContentsFile.h"
#include "generate/GeneratedFile.h"
#include "generate/WorkshopProject.h"
#include "support/TestFiles.h"

using namespace model;
using test::lines;
using test::topic;

namespace {

Text contents(std::initializer_list<TextView> body) {
    return lines({R"(<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">)", "<HTML>", "<HEAD>",
                  R"(<meta name="GENERATOR" content="Microsoft&reg; HTML Help Workshop 4.1">)",
                  "<!-- Sitemap 1.0 -->", "</HEAD><BODY>", "<UL>"})
           + lines(body) + lines({"</UL>", "</BODY></HTML>"});
}

} // namespace

TEST(WorkshopProject, ListsPagesAndContexts) {
    Topic setup = topic(1, "Setup", "setup.htm");
    setup.contextId = "IDH_SETUP";
    setup.contextNumber = "1010";
    const generate::WorkshopFileNames names = {"My.chm", "My.hhc", "My.hhk"};
    const Text head =
        lines({"[Options]", "Auto Index=Yes", "Compatibility=1.1 or later", "Compiled file=My.chm",
               "Contents file=My.hhc", "Default topic=html\\first.htm",
               "Display compile progress=No", "Index file=My.hhk",
               "Language=0x409 English (United States)", "", "[Files]", "html\\first.htm"});
    const Topic first = topic(1, "First", "first.htm");
    EXPECT_EQ(generate::workshopProject(test::outlineOf({first}), names),
              head + lines({"", "[INFOTYPES]"}));
    EXPECT_EQ(generate::workshopProject(test::outlineOf({first, setup}), names),
              head
                  + lines({"html\\setup.htm", "", "[ALIAS]", "IDH_SETUP = html\\setup.htm", "",
                           "[MAP]", "#define IDH_SETUP 1010", "", "[INFOTYPES]"}));
}

TEST(GeneratedFile, NamesAreCutAfterTheFirstPoint) {
    EXPECT_EQ(generate::siblingFile("/f.x/Manual.hhp", "chm"), "/f.x/Manual.chm");
    EXPECT_EQ(generate::siblingFile("my.help.hhp", "hhc"), "my.hhc");
    EXPECT_EQ(generate::siblingFile("/f/noPoint", "hhk"), "/f/noPoint.hhk");
}

TEST(ContentsFile, ItemsCarryTheirPicture) {
    Topic marked = topic(1, "T", "t.htm");
    const auto item = [&](TextView image, std::initializer_list<TextView> imageLine) {
        marked.image = image;
        Text expected =
            lines({"\t<LI> <OBJECT type=\"text/sitemap\">", "\t\t<param name=\"Name\" value=\"T\">",
                   "\t\t<param name=\"Local\" value=\"html/t.htm\">"})
            + lines(imageLine) + "\t\t</OBJECT>";
        EXPECT_EQ(generate::contentsFile(test::outlineOf({marked})), contents({expected})) << image;
    };
    item("Auto", {});
    item("new", {});
    item("New", {"\t\t<param name=\"New\" value=\"1\">"});
    item("Leaf", {"\t\t<param name=\"ImageNumber\" value=\"11\">"});
    item("New Leaf", {"\t\t<param name=\"ImageNumber\" value=\"12\">"});
}

TEST(ContentsFile, ListsFollowTheLevelsWithoutBalancing) {
    const auto listLines = [](std::initializer_list<Topic> topics) {
        const Text file = generate::contentsFile(test::outlineOf(topics));
        Text skeleton;
        for (std::size_t at = file.find("<UL>") + 6; at < file.find("</BODY>");) {
            const std::size_t end = file.find("\r\n", at);
            const Text line = file.substr(at, end - at);
            if (line.find("UL>") != Text::npos || line.find("<LI>") != Text::npos) {
                skeleton += line.substr(0, line.find(" <OBJECT")) + "\n";
            }
            at = end + 2;
        }
        return skeleton;
    };
    EXPECT_EQ(listLines({topic(1, "", ""), topic(3, "", ""), topic(1, "", "")}),
              "\t<LI>\n\t\t<UL>\n\t\t\t<LI>\n\t\t</UL>\n\t</UL>\n\t<LI>\n</UL>\n");
    EXPECT_EQ(listLines({topic(2, "", "")}), "\t<UL>\n\t\t<LI>\n\t</UL>\n</UL>\n");
    EXPECT_EQ(listLines({topic(9, "", "")}),
              "\t\t\t\t\t\t\t\t<UL>\n\t\t\t\t\t\t\t\t\t<LI>\n\t\t\t\t\t\t\t\t</UL>\n"
              "\t\t\t\t\t\t\t</UL>\n\t\t\t\t\t\t</UL>\n\t\t\t\t\t</UL>\n\t\t\t\t</UL>\n"
              "\t\t\t</UL>\n\t\t</UL>\n\t</UL>\n</UL>\n");
    Topic broken = topic(1, "", "");
    broken.level = "x"; // depth 0: comes to an end all the same
    EXPECT_EQ(listLines({broken, topic(1, "", "")}), "</UL>\n<LI>\n<UL>\n\t<LI>\n</UL>\n");
}
