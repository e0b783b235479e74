#include "generate/TopicSigns.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace generate;
using test::topic;

TEST(TopicSigns, FollowWhatIsEdited) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "images");
    test::writeBytes(folder / "images/there.gif", "x");
    auto outline = test::outlineOf({topic(1, "a", "a.htm"), topic(1, "b", "B.htm"),
                                    topic(1, "c", "c.htm", "<a href='..\\html\\a.htm#x'>")});
    TopicSigns signs(outline);
    signs.setFolder(folder.path());
    signs.reset({});
    for (int position : {1, 2, 3}) {
        EXPECT_EQ(signs.problems(position), "");
    }
    outline.at(1).fileName = "b.HTM";
    EXPECT_TRUE(signs.changed(1));
    EXPECT_EQ(signs.problems(1), "b.HTM: another topic has the same page");
    EXPECT_EQ(signs.problems(2), "B.htm: another topic has the same page");
    EXPECT_EQ(signs.problems(3), "..\\html\\a.htm#x: leads nowhere");

    outline.at(2).contextNumber = "7";
    outline.at(2).body = " \r\n";
    EXPECT_TRUE(signs.changed(2));
    outline.at(2).fileName = "a.htm";
    EXPECT_TRUE(signs.changed(2));
    EXPECT_EQ(signs.problems(2), "the topic has no text\n7: a number without a context string");
    EXPECT_EQ(signs.problems(1), "");
    EXPECT_EQ(signs.problems(3), "");

    outline.at(3).body =
        "<img src=\"../images/there.gif\"><IMG SRC=../images/gr\u00FC"
        "n.gif><a href='http://x'><img src='../../out.gif'><a href='../Images/image.jpg'>";
    EXPECT_FALSE(signs.changed(3));
    EXPECT_EQ(signs.problems(3), "../images/gr\u00FC"
                                 "n.gif: the picture is missing\n"
                                 "../../out.gif: the picture is missing");
    signs.swapped(2, 3);
    outline.swap(2, 3);
    signs.removed(3);
    outline.remove(3);
    EXPECT_NE(signs.problems(2).find("missing"), text::Text::npos);
    outline.insert(1, topic(1, "d", "b.htm"));
    signs.inserted(1);
    EXPECT_EQ(signs.problems(1), "b.htm: another topic has the same page");

    outline.at(1).body = "<a href='b.htm'>"; // another place from another folder
    outline.at(1).fileName = "d.htm";
    signs.changed(1);
    EXPECT_EQ(signs.problems(1), "");
    outline.at(1).fileName = "sub\\d.htm";
    signs.changed(1);
    EXPECT_EQ(signs.problems(1), "b.htm: leads nowhere");
}
