#include "workshop/HelpProject.h"

#include <gtest/gtest.h>
#include <map>

using namespace workshop;

namespace {

HelpProject read(std::string_view bytes, const std::map<std::string, std::string>& headers = {}) {
    return readProject(bytes, [&](const std::string& path) {
        const auto found = headers.find(path);
        return found == headers.end() ? std::nullopt : std::optional(found->second);
    });
}

std::vector<std::string> messagesOf(const HelpProject& project) {
    std::vector<std::string> lines;
    for (const Message& message : project.messages) {
        lines.push_back(message.file + ':' + std::to_string(message.line) + ": " + message.text);
    }
    return lines;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(HelpProject, OptionsInAnyCaseAndOrderAndTwice) {
    const HelpProject project =
        read("; made by hand\r\n[options]\r\nTITLE = \xCF\xF0\xE8 = x \r\n"
             ";Title=not this\r\nfull-text SEARCH=1\r\nBinary Index=No\r\nbinary toc=yes\r\n"
             "Custom Tab=x\r\nCreate CHI file=No\r\nCharset=204\r\nrubbish\r\n\r\n"
             "[Files]\nhtml\\a.htm\n\n;html\\c.htm\n[Odd]\nwhat=ever\n"
             "[OPTIONS]\nAuto Index=True\nLanguage=0x419 Russian\nAuto TOC=3\n[FILES]\n b c.htm");
    EXPECT_EQ(project.options.title.text, "\u041F\u0440\u0438 = x"); // the language stands below
    EXPECT_EQ(project.options.title.line, 3);
    EXPECT_EQ(project.options.language, 0x419U);
    EXPECT_EQ(project.options.codePage, 1251U);
    EXPECT_TRUE(project.options.fullTextSearch);
    EXPECT_FALSE(project.options.binaryIndex);
    EXPECT_TRUE(project.options.binaryContents);
    EXPECT_TRUE(project.options.indexFromPages);
    EXPECT_EQ(project.options.contentsLevels, 3U);
    ASSERT_EQ(project.files.size(), 2U);
    EXPECT_EQ(project.files[0].text, "html\\a.htm");
    EXPECT_EQ(project.files[0].line, 14);
    EXPECT_EQ(project.files[1].text, "b c.htm");
    EXPECT_EQ(messagesOf(project),
              (Lines{":8: option \"Custom Tab\" has no effect", ":11: \"rubbish\" is no option",
                     ":17: section [Odd] is not known"}));
}

TEST(HelpProject, ContextsComeFromHeadersToo) {
    const HelpProject project =
        read("[ALIAS]\nIDH_A = a.htm#top ; the first\n#include <more.h>\n1000=n.htm\nbad\n"
             "[MAP]\n#define IDH_A 0x10 // sixteen\n/* #define NO 1\n#define NOT 2 */\n"
             "#include \"ids.h\"\n#include missing.h\n",
             {{"more.h", "; aliases\r\nIDH_B=sub\\b.htm\r\n"},
              {"ids.h", "#ifndef X\n# define IDH_B (4294967295UL) /* last */\n#define TEXT \"x\"\n"
                        "#define EMPTY\n#include \"ids.h\"\n#endif\n"}});
    ASSERT_EQ(project.aliases.size(), 3U);
    EXPECT_EQ(project.aliases[0].page.text, "a.htm#top");
    EXPECT_EQ(project.aliases[1].name, "IDH_B");
    EXPECT_EQ(project.aliases[1].page.file, "more.h");
    EXPECT_EQ(project.aliases[1].page.line, 2);
    EXPECT_EQ(project.aliases[2].page.line, 4);
    ASSERT_GE(project.numbers.size(), 2U);
    EXPECT_EQ(project.numbers[0].number, 16U);
    EXPECT_EQ(project.numbers[1].number, 4294967295U);
    EXPECT_EQ(messagesOf(project),
              (Lines{":5: \"bad\" is no alias", "ids.h:5: cannot include \"ids.h\"",
                     ":11: cannot include \"missing.h\""}));
}

TEST(HelpProject, WhatIncludesItselfHasAnEnd) {
    constexpr std::size_t size = std::size_t(1) << 20;
    std::string lines;
    for (int i = 0; i < 100; ++i) {
        lines += "#include \"big.h\"\n";
    }
    std::size_t bytes = 0;
    const HelpProject project = readProject("[MAP]\n" + lines, [&](const std::string&) {
        bytes += size;
        return std::optional(lines + std::string(size - lines.size(), '\n'));
    });
    EXPECT_LE(bytes, std::size_t(17) << 20);
    EXPECT_FALSE(project.messages.empty());
}

TEST(HelpProject, WindowsHaveAllTheirFields) {
    const HelpProject project = read(
        "[WINDOWS]\n"
        "$global_Web=\"One, two\",\"c.hhc\",i.hhk,,home.htm,,,,,0x2520,200,0x300e,[-1,0,0x10,700],"
        "0,,1,1,2,,7\nshort=Plain caption\n=x\n");
    ASSERT_EQ(project.windows.size(), 2U);
    const WindowType& window = project.windows.front();
    EXPECT_EQ(window.name, "$global_Web");
    EXPECT_EQ(window.caption, "One, two");
    EXPECT_EQ(window.index, "i.hhk");
    EXPECT_EQ(window.home, "home.htm");
    EXPECT_EQ(window.properties, 0x2520U);
    EXPECT_EQ(window.paneWidth, 200U);
    EXPECT_EQ(window.rectangle, (std::array<std::uint32_t, 4>{0xFFFFFFFFU, 0, 16, 700}));
    EXPECT_EQ(window.style, 0U);
    EXPECT_FALSE(window.extendedStyle || window.tabPosition);
    EXPECT_EQ(window.tab, 2U);
    EXPECT_EQ(window.notify, 7U);
    EXPECT_EQ(project.windows.back().caption, "Plain caption");
    EXPECT_FALSE(project.windows.back().buttons);
    EXPECT_EQ(messagesOf(project), (Lines{":4: \"=x\" is no window"}));
}

TEST(HelpProject, UnicodeIsToldFromTheCodePage) {
    const std::string unicode = "[OPTIONS]\nTitle=\u041F\u0440\u00E9\nLanguage=0x419\n";
    EXPECT_EQ(read("\xEF\xBB\xBF" + unicode).options.title.text, "\u041F\u0440\u00E9");
    EXPECT_EQ(read(unicode).options.title.text, "\u041F\u0440\u00E9");
    EXPECT_EQ(read("[OPTIONS]\nTitle=Caf\xE9\n").options.title.text, "Caf\u00E9");
}
