#include "help/HelpSearch.h"

#include "help/HelpCheck.h"
#include "help/HitMarks.h"
#include "help/PackedHelp.h"

using namespace help;

namespace {

using Lines = std::vector<std::string>;

Lines found(HelpBook& book, const char* question) {
    Lines pages;
    for (const HelpTarget& target : book.search(HelpQuestion(question))) {
        pages.push_back(target.page.substr(1) + ' ' + target.title);
    }
    return pages;
}

class HelpSearch : public test::PackedHelp {};

/// Many words, so that the index has leaves and a root.
std::string manyWords() {
    std::string words;
    for (int i = 10000; i < 12000; ++i) {
        words += "w" + std::to_string(i) + ' ';
    }
    return words;
}

} // namespace

TEST_F(HelpSearch, AnswersTheSameWithAnIndexAndWithout) {
    const Files pages = {
        {"a.htm", "<title>Setting up</title>The printer settings. Caf\xE9 don't; the end of a c++ "
                  "page, version 3.14. Aha ha ha"},
        {"b.htm",
         "<title>Printers</title>All settings of the printer, the settings page, settings. cafe"},
        {"c.htm",
         "<meta charset=utf-8><title>Other \xC3\x9C"
         "bersicht</title>set the page up \xD0\x9F\xD0\xB0\xD1\x80\xD0\xBA. Dvo\xC5\x99\xC3\xA1k"},
        {"d.htm", "no title"}};
    const std::string a = "a.htm Setting up";
    const std::string b = "b.htm Printers";
    const std::string c = "c.htm Other \u00DCbersicht";
    const struct {
        const char* question;
        Lines pages;
    } cases[] = {
        {"settings", {b, a}}, // more often
        {"setting", {a, b}},  // in the title
        {"SET", {a, b, c}},   // beginnings
        {"set*", {a, b, c}},
        {"\"set\"", {c}}, // whole
        {"printer settings", {b, a}},
        {"\"printer settings\"", {a}}, // as they stand
        {"\"printer setting\"", {}},
        {"\"the settings page\"", {b}},
        {"\"ha ha\"", {a}}, // though it begins within a word before
        {"printer AND caf\u00E9", {a}},
        {"printer NOT caf\u00E9", {b}},
        {"set AND NOT printer", {c}},
        {"nothing OR \"set\" OR 3.14", {a, c}},
        {"NOT printer", {}},
        {"", {}},
        {"OR AND \"\" * NOT", {}},
        {"\u00DCBERSICHT", {c}},
        {"don't", {a}},
        {"c++", {a}}, // only the pages tell
        {"\u043F\u0430\u0440\u043A", {c}},
        {"dvo\u0159\u00E1k", {c}},
        {"title", {"d.htm /d.htm"}},
    };
    for (const bool isSearchable : {true, false}) {
        const auto book = compiled(pages, "Default topic=a.htm\n", isSearchable);
        for (const auto& each : cases) {
            EXPECT_EQ(found(*book, each.question), each.pages)
                << each.question << (isSearchable ? " with" : " without");
        }
    }
    const auto book = HelpBook::open(folder / "t.chm");
    const HelpQuestion question("nothing OR caf\u00E9");
    EXPECT_EQ(book->wordOn("/a.htm", question), "caf\u00E9");
    EXPECT_EQ(book->wordOn("/d.htm", question), "nothing");
}

TEST(HitMarks, ColourAllThatWasAskedForAndNothingElse) {
    const auto marked = [](const char* html, const char* question) {
        std::string text = withHitsMarked(html, HelpQuestion(question));
        const auto put = [&text](std::string_view tag, const char* sign) {
            for (std::size_t at = 0; (at = text.find(tag)) != std::string::npos;) {
                text.replace(at, tag.size(), sign);
            }
        };
        put(R"(<span style="background-color:#ffe08a;color:#000000">)", "[");
        put("</span>", "]");
        return text;
    };
    EXPECT_EQ(marked("<p title=set>Set, sets; reset. Caf&eacute;s</p>", "set caf\u00E9"),
              "<p title=set>[Set], [set]s; reset. [Caf&eacute;]s</p>");
    EXPECT_EQ(marked("a<b>b</b>c abc, a&shy;bc", "abc"), "[a]<b>[b]</b>[c] [abc], [a&shy;bc]");
    EXPECT_EQ(marked("<i>new\r\n  text</i><p>new text", "\"new text\""),
              "<i>[new\r\n  text]</i><p>[new text]");
    EXPECT_EQ(marked("<title>x</title><textarea>x</textarea><script>x</script><!-- x -->x", "x"),
              "<title>x</title><textarea>x</textarea><script>x</script><!-- x -->[x]");
    EXPECT_EQ(marked("yes no", "yes NOT no"), "[yes] no");
    EXPECT_EQ(marked("\u65E5\u672C\u8A9E", "\u672C"), "\u65E5[\u672C]\u8A9E");
}

TEST_F(HelpSearch, UsesAnIndexThatHoldsAllPages) {
    test::writeBytes(folder / "stop.txt", "unwanted");
    const auto book =
        compiled({{"a.htm", "<title>A</title>unwanted \xE5\xE9"}, {"b.htm", "<title>B</title>no"}},
                 "Full text search stop list file=stop.txt\n", true);
    EXPECT_EQ(found(*book, "unwanted"), Lines{});
    EXPECT_EQ(found(*book, "\u00E5\u00E9"), Lines{"a.htm A"});
    EXPECT_EQ(found(*book, "ae"), Lines{"a.htm A"});
    EXPECT_EQ(checkHelp(folder / "t.chm"), Lines{}); // a single leaf is not too many
    Files all = files();
    all["/c.htm"] = "<title>C</title>unwanted";
    EXPECT_EQ(found(*HelpBook::open(packed(all)), "unwanted"), (Lines{"a.htm A", "c.htm C"}));
    all.erase("/c.htm");
    all["/$FIftiMain"].replace(0x400, 40, 40, '\xFF');
    EXPECT_EQ(found(*HelpBook::open(packed(all)), "no"), Lines{});
    std::string& index = all["/$FIftiMain"];
    index.replace(index.size() - 4096, 4, index, 0x14, 4); // the only leaf leads to itself
    EXPECT_EQ(found(*HelpBook::open(packed(all)), "zzz"), Lines{});
    EXPECT_TRUE(checkHelp(packed(all)));
}

TEST_F(HelpSearch, IsLookedAtByTheCheck) {
    compiled({{"a.htm", "<title>One</title>" + manyWords()}, {"b.htm", "<title>Two</title>one"}},
             "", true);
    const Files sound = files();
    const std::string index = sound.at("/$FIftiMain");
    const auto changed = [&](std::size_t place, const std::string& bytes) {
        Files files = sound;
        files["/$FIftiMain"].replace(place, bytes.size(), bytes);
        return files;
    };
    const auto faults = [this](const Files& files) {
        Lines own;
        const auto all = checkHelp(packed(files));
        for (const std::string& fault : all.value_or(Lines())) {
            if (fault.starts_with("search index: ")) {
                own.push_back(fault.substr(14));
            }
        }
        return own;
    };
    EXPECT_EQ(faults(sound), Lines{});
    EXPECT_EQ(faults(changed(0, "x")), Lines{"is damaged"});
    EXPECT_EQ(faults(changed(0x10, "x")), Lines{"is damaged"}); // the number of leaves
    EXPECT_EQ(faults(changed(0x18, "x")), Lines{"is damaged"}); // the levels
    const std::size_t root = index.size() - 4096;
    const std::string firstKey =
        index.substr(root + 4, static_cast<std::size_t>(index[root + 2]) - 1);
    EXPECT_EQ(faults(changed(root + 4, "a")),
              Lines{"some words up to \"" + firstKey + "\" are not found"});
    EXPECT_EQ(faults(changed(0x400, "\xFF\xFF")), (Lines{"the places of \"one\" are damaged"}));
    const std::size_t one = index.find(std::string("\4\0one\0", 6));
    EXPECT_EQ(faults(changed(one + 2, "z")), Lines{"its words are not in order"});
    std::string contexts = index.substr(one + 5, 12); // of the entry, and at the end of the next
    std::swap(contexts.front(), contexts.back());
    EXPECT_EQ(faults(changed(one + 5, contexts)),
              Lines{"the titles with \"one\" come before the texts, which some readers then do not "
                    "find"});
    Files files = sound;
    files["/late.htm"] = "word";
    files["/empty.htm"] = "<p>...";
    EXPECT_EQ(faults(files), Lines{"lacks /late.htm"});
    files = sound;
    files["/$FIftiMain"].clear();
    EXPECT_EQ(faults(files), Lines{"is missing"});
    files = sound;
    std::string& system = files["/#SYSTEM"];
    system[system.find(std::string("\x04\0\x24\0", 4)) + 12] = 0;
    EXPECT_EQ(faults(files), Lines{"the help does not say that it has one, so that some readers do "
                                   "not use it"});
}
