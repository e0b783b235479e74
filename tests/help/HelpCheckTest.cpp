#include "help/HelpCheck.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "compile/Bytes.h"
#include "compile/Container.h"
#include "help/PackedHelp.h"
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
        {"/a.htm", "<a href='HTML/b.htm?x#here'>b</a><a href='https://example.org/'>web</a>"
                   "<a href='other.chm::/c.htm'>c</a><a href='#'>top</a><a "
                   "href='#Top'>top</a>\r\n<img src='a%20b.gif'>"},
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
         "<a name=here></a>\r\n<a href='a.htm'>a</a><a href='#x'>x</a><a href='#Here'>h</a>",
         {"/html/b.htm:2: leads to a.htm, which is not there",
          "/html/b.htm:2: leads to #x, a place that its page does not have",
          "/html/b.htm:2: leads to #Here, a place that its page does not have"}},
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

namespace {

std::string sitemapEntry(const std::string& name) {
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name
           + "\"><param name=\"Name\" value=\"A\"><param name=\"Local\" value=\"a.htm\"></OBJECT>";
}

class BinaryTables : public test::PackedHelp {
protected:
    /// A help with a book, and with keywords in three levels of blocks.
    void SetUp() override {
        std::string index = "<UL>";
        for (int i = 0; i < 200; ++i) {
            index += sitemapEntry("keyword " + std::string(100, 'a') + std::to_string(i));
        }
        test::writeBytes(folder / "t.hhk", index + "</UL>");
        test::writeBytes(folder / "t.hhc", "<UL>" + sitemapEntry("Book") + "<UL>"
                                               + sitemapEntry("Page") + "</UL></UL>");
        compiled({{"a.htm", "<title>A</title>"}},
                 "Contents file=t.hhc\nIndex file=t.hhk\nBinary TOC=Yes\nBinary Index=Yes\n",
                 false);
        sound_ = files();
    }

    /// What is said when a byte of a file is another one.
    Lines faultsWith(const std::string& file, std::size_t place, char byte) {
        Files changed = sound_;
        changed.at(file).at(place) = byte;
        return help::checkHelp(packed(changed)).value_or(Lines{"unreadable"});
    }

    Files sound_;
};

} // namespace

TEST_F(BinaryTables, OfContentsAreLookedAtByTheCheck) {
    const std::string file = "/#TOCIDX";
    EXPECT_EQ(faultsWith(file, 8, sound_.at(file)[8]), Lines{});
    const std::size_t book = 4096;
    const std::size_t page = book + 28;
    const auto at = [](std::size_t place, const std::string& fault) {
        return Lines{"binary contents: the entry at " + std::to_string(place) + ' ' + fault};
    };
    EXPECT_EQ(faultsWith(file, page + 8, 99), at(page, "has topic 99, which is not there"));
    EXPECT_EQ(faultsWith(file, page + 4, 0), Lines{}); // a name at an offset of the strings
    EXPECT_EQ(faultsWith(file, page + 0xC, 4), at(page, "does not know the one above it"));
    EXPECT_EQ(faultsWith(file, page + 0x11, 0x10), at(book, "is reached twice"));
    EXPECT_EQ(faultsWith(file, book + 0x16, 0x7F), at(0x7F101C, "lies outside the file"));
}

TEST_F(BinaryTables, OfKeywordsAreLookedAtByTheCheck) {
    const std::string links = "/$WWKeywordLinks/";
    const std::string tree = links + "BTree";
    const std::size_t lastBlock = sound_.at(tree).size() - 2048;
    const auto block = [](std::size_t number) { return 76 + number * 2048; };
    ASSERT_EQ(sound_.at(tree)[0x2A], 3) << "levels";
    const std::size_t list = static_cast<unsigned char>(sound_.at(tree)[0x1A]) + 1U;
    const auto says = [&](const std::string& file, std::size_t place, char byte,
                          const std::string& text) {
        const Lines faults = faultsWith(file, place, byte);
        const std::string first = faults.empty() ? "nothing" : faults.front();
        EXPECT_EQ(first.find("binary index $WWKeywordLinks: " + text), 0) << place << ": " << first;
    };
    says(tree, 4, 1, "its header does not fit");
    says(tree, 0x26, 1, "its header does not fit");
    says(tree, 0x2C, 1, "its list is not as long");
    says(tree, 0x1E, 1, "its root leads nowhere");
    says(tree, block(1) + 4, 9, "block 1 is not linked");
    says(tree, block(1) + 8, 1, "block 1 is not linked"); // a circle
    says(tree, block(1) + 2, 99, "block 1 is damaged");
    says(tree, block(1) + 0, 99, "block 1 is damaged");
    const std::size_t topic = block(0) + 12 + 2 * (8 + 100 + 1 + 1) + 16;
    says(tree, topic, 9, "\"keyword " + std::string(100, 'a') + "0\" has topic 9, which");
    const std::string leads = "block " + std::to_string(list) + " leads to \"";
    says(tree, block(list) + 4, 1, leads);
    says(tree, block(list) + 8, 'x', leads + 'x');
    says(tree, lastBlock + 4, 0, "its root leads nowhere");
    says(links + "Map", 2 + 8, 1, "its map does not lead to block 1");
    says(links + "Map", 0, 1, "its list is not as long");
    sound_.at(links + "Data").pop_back();
    says(links + "Property", 0, 0, "its data are not those");
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
