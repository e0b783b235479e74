#include "help/PackedHelp.h"

using namespace help;

namespace {

using Lines = std::vector<std::string>;

std::string entry(const std::string& name, const std::string& page) {
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name
           + "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>\n";
}

Lines contentsOf(const HelpBook& book) {
    Lines lines;
    for (const ContentsEntry& each : book.contents()) {
        lines.push_back(std::to_string(each.depth) + ' ' + each.target.title + ' '
                        + each.target.page);
    }
    return lines;
}

Lines indexOf(HelpBook& book) {
    Lines lines;
    for (const IndexEntry& each : book.index()) {
        lines.push_back(each.keyword + ':');
        for (const HelpTarget& target : each.targets) {
            lines.back() += ' ' + target.page;
        }
    }
    return lines;
}

/// Takes the names of contents and index out of what a help says of itself.
void unname(std::string& system) {
    for (std::size_t at = 4; at + 4 <= system.size();) {
        const auto length = static_cast<std::size_t>(static_cast<unsigned char>(system[at + 2]));
        const bool isLong = system[at + 3] != 0;
        if (system[at + 1] == 0 && (system[at] == 0 || system[at] == 1)) {
            system[at] = 99;
        }
        at += isLong ? system.size() : 4 + length;
    }
}

} // namespace

class OddHelp : public test::PackedHelp {
protected:
    std::unique_ptr<HelpBook> repacked(const Files& files) { return HelpBook::open(packed(files)); }
};

TEST_F(OddHelp, HasItsContentsSomewhere) {
    const std::string list = "<UL>" + entry("Caf\xE9", "a.htm") + "<UL>" + entry("In", "b.htm#p")
                             + "</UL>"
                             + "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" "
                               "value=\"Only a name\"></OBJECT></UL>";
    test::writeBytes(folder / "list.hhc", list);
    test::writeBytes(folder / "words.hhk", "<UL>" + entry("key", "a.htm") + "<UL>"
                                               + entry("s\xFC\xDF", "b.htm") + "</UL></UL>");
    const auto book = compiled({{"a.htm", "<title>Caf\xE9</title>"},
                                {"b.htm", "<title>B</title><a name=p>"},
                                {"another.hhc", "<UL>" + entry("Wrong", "a.htm") + "</UL>"}},
                               "Contents file=list.hhc\nIndex file=words.hhk\nBinary TOC=Yes\n"
                               "Default topic=b.htm\nTitle=T\xEFtle\n",
                               false);
    const Lines contents = contentsOf(*book);
    const Lines index = indexOf(*book);
    EXPECT_EQ(contents, (Lines{"1 Caf\u00E9 /a.htm", "2 In /b.htm#p", "1 Only a name "}));
    EXPECT_EQ(index, (Lines{"key: /a.htm", "key, s\u00FC\u00DF: /b.htm"}));
    const auto expectAll = [&](const Files& files, const char* what) {
        const auto other = repacked(files);
        EXPECT_EQ(contentsOf(*other), contents) << what;
        EXPECT_EQ(indexOf(*other), index) << what;
        EXPECT_EQ(other->homePage(), "/b.htm") << what;
    };
    Files parts = files();
    unname(parts["/#SYSTEM"]);
    expectAll(parts, "named by a window");
    parts.erase("/another.hhc");
    parts.erase("/#WINDOWS");
    parts.erase("/#TOCIDX");
    parts["/LIST.HHC"] = parts.extract("/list.hhc").mapped();
    expectAll(parts, "the only ones");
    parts = files();
    for (const char* text : {"/another.hhc", "/list.hhc", "/words.hhk"}) {
        parts.erase(text);
    }
    expectAll(parts, "in binary form");
    for (const char* table : {"/#TOCIDX", "/$WWKeywordLinks/BTree"}) { // in circles
        Files damaged = parts;
        std::string& bytes = damaged[table];
        for (std::size_t i = 64; i + 4 < bytes.size(); i += 4) {
            bytes.replace(i, 4, std::string("\0\x10\0\0", 4));
        }
        EXPECT_NE(indexOf(*repacked(damaged)), Lines{"never"});
    }
    parts = files();
    parts.erase("/a.htm");
    parts.erase("/b.htm");
    const auto empty = repacked(parts); // opens, too
    EXPECT_EQ(contentsOf(*empty), contents);
    EXPECT_EQ(empty->homePage(), "");
    EXPECT_EQ(empty->search(HelpQuestion("b")).size(), 0U);
}

TEST_F(OddHelp, HasTextsInTheCodePageOfItsPages) {
    const std::string name = "\xCD\xE0\xF7"; // in Windows-1251
    test::writeBytes(folder / "list.hhc", "<UL>" + entry(name, "a.htm") + "</UL>");
    compiled({{"a.htm", "<meta charset=windows-1251><title>" + name + "</title>" + name}},
             "Contents file=list.hhc\n", true);
    EXPECT_EQ(contentsOf(*HelpBook::open(folder / "t.chm")), Lines{"1 \u041D\u0430\u0447 /a.htm"});
    Files parts = files();
    parts["/list.hhc"] = "<UL>" + entry("\xC3\x9C", "a.htm") + "</UL>"; // UTF-8
    EXPECT_EQ(contentsOf(*repacked(parts)), Lines{"1 \u00DC /a.htm"});

    compiled({{"a.htm", "<title>a</title>"}}, "Language=0x419\nContents file=list.hhc\n", true);
    parts = files();
    parts["/list.hhc"] = "<UL>" + entry("&Iacute;&#224;&#247;", "a.htm") + "</UL>";
    EXPECT_EQ(contentsOf(*repacked(parts)), Lines{"1 \u041D\u0430\u0447 /a.htm"});
}
