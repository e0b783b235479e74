#include "help/HelpCheck.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "compile/Bytes.h"
#include "compile/Container.h"
#include "support/TestFiles.h"

using namespace help;
using compile::append16;
using compile::append32;

namespace {

using Files = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

/// What a help says about itself: contents, home page and title.
std::string systemFile(const std::string& home) {
    std::string bytes;
    append32(bytes, 3);
    const std::pair<unsigned, std::string> entries[] = {{0, "t.hhc"}, {2, home}, {3, "Caf\xE9"}};
    for (const auto& [code, text] : entries) {
        append16(bytes, code);
        append16(bytes, text.size() + 1);
        bytes += text + '\0';
    }
    return bytes;
}

std::string contexts(std::uint32_t number, std::uint32_t text) {
    std::string bytes;
    append32(bytes, 8);
    append32(bytes, number);
    append32(bytes, text);
    return bytes;
}

std::string contents(const std::string& page) {
    return "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Caf\xE9\"><param "
           "name=\"Local\" value=\""
           + page + "\"></OBJECT></UL>";
}

Files soundHelp() {
    Files files{
        {"/#SYSTEM", systemFile("a.htm")},
        {"/#IVB", contexts(7, 1)},
        {"/#STRINGS", std::string("\0html\\B.htm\0", 12)},
        {"/t.hhc", contents("html\\b.htm#here")},
        {"/a.htm", "<a href='HTML/b.htm?x#Here'>b</a><a href='https://example.org/'>web</a>"
                   "<a href='other.chm::/c.htm'>c</a><a href='#'>top</a>\r\n<img src='a%20b.gif'>"},
        {"/a b.gif", "GIF"},
        {"/html/b.htm", "<a name=here></a><a href='../a.htm'>a</a><a href=/a.htm>a</a>"},
    };
    for (int i = 0; i < 200; ++i) { // two blocks of names
        files["/more/picture with a long name " + std::to_string(i) + ".gif"] = "GIF";
    }
    return files;
}

std::string packed(const Files& files) {
    compile::Container container({});
    for (const auto& [name, content] : files) {
        container.add(name, content);
    }
    return container.pack().value();
}

Lines faultsOf(const std::string& bytes) {
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "help.chm", bytes);
    return checkHelp(folder / "help.chm").value_or(Lines{"unreadable"});
}

} // namespace

TEST(HelpCheck, NamesWhatLeadsNowhere) {
    const Files sound = soundHelp();
    EXPECT_EQ(faultsOf(packed(sound)), Lines{});
    const struct {
        const char* file;
        std::string content;
        Lines faults;
    } cases[] = {
        {"/#SYSTEM", systemFile("gone.htm"), {"home page: leads to gone.htm, which is not there"}},
        {"/#IVB", contexts(7, 6), {"context 7: leads to B.htm, which is not there"}},
        {"/#IVB", contexts(7, 999), {"context 7: has no page"}},
        {"/t.hhc",
         contents("c.htm"),
         {"contents: \"Caf\xC3\xA9\": leads to /c.htm, which is not there"}},
        {"/t.hhc",
         contents("a.htm#p"),
         {"contents: \"Caf\xC3\xA9\": leads to /a.htm#p, a place that its page does not have"}},
        {"/html/b.htm",
         "<a name=here></a>\r\n<a href='a.htm'>a</a><a href='#x'>x</a>",
         {"/html/b.htm:2: leads to a.htm, which is not there",
          "/html/b.htm:2: leads to #x, a place that its page does not have"}},
        {"/#TOPICS", std::string(16, '\x7F'), {"topic 0: has no address"}},
    };
    for (const auto& each : cases) {
        Files files = sound;
        files[each.file] = each.content;
        EXPECT_EQ(faultsOf(packed(files)), each.faults) << each.file;
    }
}

TEST(HelpCheck, NamesWhatReadersStumbleOver) {
    const std::string sound = packed(soundHelp());
    constexpr std::size_t directory = 0x78;
    constexpr std::size_t blocks = directory + 0x54;
    constexpr std::size_t blockSize = 4096;
    const struct {
        std::size_t place;
        char byte;
        const char* fault;
    } cases[] = {
        {0x28, '\x10', "second identification is wrong"},
        {0x68, '\x01', "the header says"},
        {directory + 0x20, 1, "said to begin with block 1"},
        {directory + 0x24, 0, "not said to be the last one"},
        {blocks + 0x10, 2, "is not linked with"},
        {blocks + blockSize - 4, 1, "the shortcuts in block 0 are wrong"},
        {blocks + blockSize - 2, 1, "the shortcuts in block 0 are wrong"},
        {blocks, 'X', "block 0 is damaged"},
        {blocks + 0x14 + 4 + 3, '~', "stands behind"}, // a letter of the second name
        {sound.find("PMGI") + 8 + 2, 'z', "cannot be found by its name"},
        {sound.find("ControlData") + 13, 32, "ControlData has"},
    };
    for (const auto& each : cases) {
        std::string bytes = sound;
        bytes[each.place] = each.byte;
        const Lines faults = faultsOf(bytes);
        EXPECT_TRUE(std::any_of(
            faults.begin(), faults.end(),
            [&](const std::string& fault) { return fault.find(each.fault) != std::string::npos; }))
            << each.fault << ", but: " << (faults.empty() ? "nothing" : faults.front());
    }
    const Lines faults = faultsOf(sound.substr(0, sound.size() - 100));
    EXPECT_NE(std::find(faults.begin(), faults.end(), "parts of the file are missing or damaged"),
              faults.end());
    EXPECT_EQ(faultsOf("no help"), Lines{"unreadable"});
}

TEST(HelpCheck, ComparesWithTheProject) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "html");
    for (const char* file : {"a.htm", "t.hhc", "html/b.htm"}) {
        test::writeBytes(folder / file, soundHelp().at("/" + std::string(file)));
    }
    test::writeBytes(folder / "help.chm", packed(soundHelp()));
    const std::string project =
        "[OPTIONS]\r\nTitle=Caf\xE9\r\nDefault topic=A.htm\r\nContents file=t.hhc\r\n"
        "[FILES]\r\na.htm\r\nhtml\\B.htm\r\n[ALIAS]\r\nIDH_B=html\\b.htm\r\n[MAP]\r\n"
        "#define IDH_B 7\r\n";
    const auto differences = [&](const std::string& text) {
        test::writeBytes(folder / "help.hhp", text);
        return checkHelp(folder / "help.chm", folder / "help.hhp").value();
    };
    EXPECT_EQ(differences(project), Lines{});
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = project;
        return differences(text.replace(text.find(from), from.size(), to));
    };
    EXPECT_EQ(changed("Caf\xE9", "Tea"), Lines{"title is \"Caf\xC3\xA9\" and not \"Tea\""});
    EXPECT_EQ(changed("A.htm", "t.htm"), Lines{"home page is \"/a.htm\" and not \"/t.htm\""});
    EXPECT_EQ(changed("_B 7", "_B 8"), Lines{"context 8 is \"\" and not \"/html/b.htm\""});
    test::writeBytes(folder / "html/b.htm", "edited");
    test::writeBytes(folder / "new.htm", "");
    test::writeBytes(folder / "t.hhc", contents("a.htm") + contents("a.htm"));
    EXPECT_EQ(changed("a.htm\r\n", "a.htm\r\nnew.htm\r\n"),
              (Lines{"contents: 1 entries and not 2", "/new.htm is missing",
                     "/html/B.htm is not as on the disk"}));
}
