#include "compile/CompilerFixture.h"

// What a hostile or careless project must not do.

using namespace test;

namespace {

using CompilerPaths = CompilerTest;

} // namespace

TEST_F(CompilerPaths, PagesDoNotLeadThroughLinks) {
    write("secret/key.txt", "never");
    write("doc/a.htm", "<a href=out/key.txt><a href=also.txt>");
    write("doc/p.hhp", "[FILES]\na.htm\nalso.txt\n");
    if (!test::makeLink(folder / "secret", folder / "doc/out")
        || !test::makeLink(folder / "secret/key.txt", folder / "doc/also.txt")) {
        GTEST_SKIP() << "no links here";
    }
    const CompileOutcome outcome = compile("doc/p.hhp"); // the project itself may name a link
    EXPECT_EQ(messagesOf(outcome), (Lines{"doc/a.htm:1: warning: file not found: out/key.txt"}));
    EXPECT_EQ(pathsOf(outcome.output), (Lines{"/a.htm", "/also.txt"}));
}

TEST_F(CompilerPaths, PagesStayInTheFoldersOfTheProject) {
    write("top.txt", "never");
    write("a/outer.htm", "");
    write("a/sub/below.txt", "");
    write("a/shared/ok.txt", "");
    write("a/doc/folder/near.txt", "");
    if (!test::makeLink(folder / "top.txt", folder / "a/shared/out.txt")
        || !test::makeLink(folder / "a/shared/ok.txt", folder / "a/shared/in.txt")
        || !test::makeLink(folder / "a/doc/folder", folder / "a/doc/other")
        || !test::makeLink(folder / "a/doc", folder / "a/doc/circle")
        || !test::makeLink(folder / "a/doc", folder / "a/doc/folder/up")) {
        GTEST_SKIP() << "no links here";
    }
    const struct {
        std::string named, address, packed;
    } cases[] = {
        {"..\\outer.htm", "../sub/below.txt", "/sub/below.txt"},
        {"..\\outer.htm", "../../top.txt", ""},
        {"..\\outer.htm", "../../a/../top.txt", ""},
        {"..\\shared\\ok.txt", "../sub/below.txt", ""},
        {"..\\shared\\ok.txt", "../shared/in.txt", "/shared/in.txt"},
        {"..\\shared\\ok.txt", "../shared/out.txt", ""},
        {"i.htm", "other/near.txt", "/other/near.txt"},
        {"i.htm", "circle/i.htm", ""},
        {"i.htm", "folder/up/i.htm", ""},
    };
    for (const auto& [named, address, packed] : cases) {
        write("a/doc/i.htm", "<a href=" + address + ">");
        write("a/doc/p.hhp", "[FILES]\ni.htm\n" + named + "\n");
        const CompileOutcome outcome = compile("a/doc/p.hhp");
        const Lines paths = pathsOf(outcome.output);
        EXPECT_EQ(paths.size(), (named == "i.htm" ? 1U : 2U) + (packed.empty() ? 0U : 1U))
            << address;
        EXPECT_EQ(std::count(paths.begin(), paths.end(), packed), packed.empty() ? 0 : 1)
            << address;
        EXPECT_EQ(messagesOf(outcome).size(), packed.empty() ? 1U : 0U) << address;
    }
}

TEST_F(CompilerPaths, LinksBetweenFoldersDoNotMultiplyTheirPages) {
    constexpr int count = 7; // 6 * 5 * 4 * 3 * 2 ways to the last page, and as many to others
    std::string page;
    for (int i = 0; i < count; ++i) {
        page += "<a href=to" + std::to_string(i) + "/i.htm>";
    }
    for (int i = 0; i < count; ++i) {
        const std::string name = "x" + std::to_string(i);
        write(name + "/i.htm", page);
        for (int k = 0; k < count; ++k) {
            if (!test::makeLink(folder / ("x" + std::to_string(k)),
                                folder / name / ("to" + std::to_string(i == k ? 99 : k)))) {
                GTEST_SKIP() << "no links here";
            }
        }
    }
    write("p.hhp", "[FILES]\nx0\\i.htm\n");
    const std::size_t packed = compile("p.hhp").files;
    EXPECT_GT(packed, std::size_t(count));
    EXPECT_LT(packed, std::size_t(500));
}

TEST_F(CompilerPaths, AProjectReplacesNothingThroughALink) {
    write("a.htm", "");
    write("p.hhp", "[OPTIONS]\nCompiled file=o.chm\n[FILES]\na.htm\n");
    write("diary.txt", "mine");
    if (!test::makeLink(folder / "diary.txt", folder / "o.chm")) {
        GTEST_SKIP() << "no links here";
    }
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_FALSE(outcome.isWritten);
    EXPECT_EQ(messagesOf(outcome),
              (Lines{"o.chm:0: error: is a link, and a project may not choose what to replace "
                     "through one; name the output yourself"}));
    EXPECT_EQ(test::bytesOf(folder / "diary.txt"), "mine");
    EXPECT_TRUE(compile("p.hhp", {folder / "o.chm"}).isWritten); // the person chose it
}

TEST_F(CompilerPaths, WhatABinaryFormCannotLeadToIsSaid) {
    write("a.htm", "<title>A</title>");
    const std::string away = entry("Web", "https://example.org/") + entry("Help", "x.chm::/a.htm");
    write("t.hhc", "<ul>" + entry("A", "a.htm") + "\n" + away);
    write("t.hhk", "<ul>" + away);
    const std::string said = " targets from here on lie outside the help; readers of its binary "
                             "form do not find them";
    for (const bool isBinary : {false, true}) {
        const std::string yes = isBinary ? "Yes\n" : "No\n";
        write("p.hhp", "[OPTIONS]\nContents file=t.hhc\nIndex file=t.hhk\nBinary TOC=" + yes
                           + "Binary Index=" + yes);
        EXPECT_EQ(messagesOf(compile("p.hhp")),
                  isBinary ? (Lines{"t.hhc:3: note: 2" + said, "t.hhk:1: note: 2" + said})
                           : Lines{});
    }
}

TEST_F(CompilerPaths, NothingLeadsToWhatIsLeftOut) {
    for (const char* name : {"$x.htm", "a/x.htm", "b/x.htm"}) {
        write(name, "<title>x</title>");
    }
    write("#SYSTEM", "<ul>" + entry("Name", "a/x.htm"));
    write("#popup", "");
    write("i.hhk", "<ul>" + entry("K", "$x.htm"));
    std::string project =
        "[OPTIONS]\nFlat=Yes\nTitle=Mine\nContents file=#SYSTEM\nIndex "
        "file=i.hhk\n[WINDOWS]\nW=\"c\",,\"other.hhk\",\"$x.htm\"\n[TEXT POPUPS]\n"
        "#popup\n[ALIAS]\n1=$x.htm\n2=a\\x.htm\n3=b\\x.htm\n4=#y.htm\n"
        "[MERGE FILES]\n";
    for (int i = 0; i < 1002; ++i) {
        project += std::to_string(i) + ".chm\n";
    }
    write("p.hhp", project);
    const CompileOutcome outcome = compile("p.hhp");
    const std::string reserved =
        ":0: warning: has a name that the help keeps for itself; it is left out";
    EXPECT_EQ(messagesOf(outcome),
              (Lines{"#SYSTEM" + reserved,
                     "p.hhp:7: warning: the window shows i.hhk and not other.hhk, as the help has "
                     "one for all windows",
                     "#popup" + reserved, "p.hhp:14: warning: \"#y.htm\" names no page",
                     "$x.htm" + reserved,
                     "b/x.htm:0: warning: its name in the help is too long or taken; it is left "
                     "out",
                     "p.hhp:11: warning: context 1 leads to $x.htm, which is left out",
                     "p.hhp:13: warning: context 3 leads to b/x.htm, which is left out",
                     "i.hhk:1: warning: leads to $x.htm, which is left out",
                     "p.hhp:7: warning: names $x.htm, which is left out",
                     "p.hhp:1016: warning: the help has room for 1000 merged files; this one and "
                     "those behind it are left out"}));
    const auto book = help::HelpBook::open(outcome.output);
    EXPECT_EQ(book->title(), "Mine");
    EXPECT_EQ(book->pageOfContext(1), "");
    EXPECT_EQ(book->pageOfContext(2), "/x.htm");
    EXPECT_EQ(book->pageOfContext(3), "");
}
