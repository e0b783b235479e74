#include <random>

#include "compile/CompilerFixture.h"
#include "compile/SearchReader.h"
#include "workshop/Encoding.h"

using namespace test;

namespace {

using Pages = SearchReader::Pages;

struct Question {
    std::string word; ///< in UTF-8, or the code page's bytes
    Pages pages;
};

} // namespace

class SearchTest : public CompilerTest {
protected:
    /// Asks both: the rule of the system's viewer, and a reader that compares bytes.
    void expectFound(const fs::path& help, const std::vector<Question>& questions,
                     unsigned codePage = 1252) {
        const SearchReader reader(help);
        std::string words;
        for (const Question& each : questions) {
            const std::string bytes =
                workshop::encoded(each.word, codePage, [](char32_t) { return "?"; });
            if (const std::string folded = reader.folded(bytes); !folded.empty()) {
                EXPECT_EQ(reader.find(folded), each.pages) << each.word;
            }
            words += bytes.substr(0, 99) + '\n';
        }
#ifndef _WIN32
        test::writeBytes(folder / "words.txt", words);
        test::writeBytes(folder / "find.py",
                         "import sys; from chm import chm; c = chm.CHMFile()\n"
                         "c.LoadCHM(sys.argv[1].encode())\n"
                         "for word in open(sys.argv[2], 'rb').read().split(b'\\n')[:-1]:\n"
                         "    found = c.Search(word, 1, 0)[1]\n"
                         "    print(*sorted(page.decode() for page in found.values()))\n");
        const std::string found = printed("/usr/bin/python3" + quoted(folder / "find.py")
                                              + quoted(help) + quoted(folder / "words.txt"),
                                          folder / "found.txt");
        std::string expected;
        for (const Question& each : questions) {
            for (const std::string& page : each.pages) {
                expected += (page == *each.pages.begin() ? "" : " ") + page;
            }
            expected += '\n';
        }
        EXPECT_EQ(found, expected);
#endif
    }

    /// Numbered pages with words, and a project that wants them searched.
    void writePages(const std::vector<std::string>& pages, const std::string& options) {
        std::string project = "[OPTIONS]\nFull-text search=Yes\n" + options + "[FILES]\n";
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const std::string name = std::to_string(i) + ".htm";
            write(name, pages[i]);
            project += name + '\n';
        }
        write("p.hhp", project);
    }
};

TEST_F(SearchTest, FindsTheWordsOfPagesAndTitles) {
    const std::string longWord(150, 'w');
    writePages(
        {"<html><head><title>Zero aardvark</title><style>p { color: styled }</style></head>"
         "<BODY bgcolor='#fff' onload=\"if (a > b) x()\">All <b class='x'>B</b>old &amp; "
         "caf&eacute; "
         "zzz<!-- hidden --><script>scripted()</script> it's a don't 3.14, 1,000. x_1 "
             + longWord,
         "<title>One &ndash; caf&#233;</title><body>All naked Zero. \u00E9t\u00E9\n<svg><title>"
         "drawn</title></svg>", // in another code page than it seems
         "\xEF\xBB\xBF<title>Two</title>all\u00A0\u00C9T\u00C9 na\u00EFve Stra\u00DFe "
         "don\u2019t v2.0 co-op soft\u00ADness x<y",
         "<meta charset=koi8-r><title>Three</title>aLL \xF7 all"},
        "");
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_EQ(messagesOf(outcome),
              (Lines{"3.htm:0: note: the full text search cannot find words with letters that code "
                     "page 1252 lacks, on this page"}));
    expectFound(outcome.output,
                {{"aardvark", {"0.htm"}},
                 {"zero", {"0.htm", "1.htm"}}, // in one title and another page's text
                 {"all", {"0.htm", "1.htm", "2.htm", "3.htm"}},
                 {"caf\u00E9", {"0.htm", "1.htm"}},
                 {"b", {"0.htm"}},
                 {"old", {"0.htm"}},
                 {"zzz", {"0.htm"}},
                 {"dont", {"0.htm", "2.htm"}},
                 {"3.14", {"0.htm"}},
                 {"1000", {"0.htm"}},
                 {"x_1", {"0.htm"}},
                 {longWord, {"0.htm"}},
                 {"drawn", {"1.htm"}},
                 {"na\u00EFve", {"2.htm"}},
                 {"stra\u00DFe", {"2.htm"}},
                 {"0", {"2.htm"}},
                 {"op", {"2.htm"}},
                 {"styled", {}},
                 {"fff", {}},
                 {"hidden", {}},
                 {"scripted", {}},
                 {"amp", {}},
                 {"nowhere", {}}});
    const SearchReader reader(outcome.output);
    EXPECT_EQ(reader.find("zero", true), Pages{"0.htm"});
    for (const char* word : {"strasse", "don't", "softness", "\xE9t\xE9"}) {
        EXPECT_TRUE(reader.find(word).contains("2.htm")) << word;
    }
    EXPECT_EQ(reader.find("s"), Pages{});
}

TEST_F(SearchTest, FindsTheWordsOfEveryLanguage) {
    struct Language {
        unsigned number;
        std::string text;
        Lines words; ///< that are found in both ways
    };
    const Language languages[] = {
        {0x405,
         "P\u0159\u00EDli\u0161 \u017Dlu\u0165ou\u010Dk\u00FD k\u016F\u0148",
         {"p\u0159\u00EDli\u0161", "\u017Elu\u0165ou\u010Dk\u00FD", "k\u016F\u0148"}},
        {0x408, "\u0388\u03BD\u03B1 \u03A7\u03AD\u03C1\u03B9", {"\u03AD\u03BD\u03B1"}},
        {0x419,
         "\u0412\u0432\u0435\u0434\u0435\u043D\u0438\u0435 \u0401\u043B\u043A\u0430",
         {"\u0432\u0432\u0435\u0434\u0435\u043D\u0438\u0435", "\u0451\u043B\u043A\u0430"}},
        {0x41F,
         "\u0130stanbul\u2019da \u011E\u00FCne\u015F \u0131",
         {"istanbul'da", "\u011F\u00FCne\u015F", "\u0131"}},
        {0x411,
         "\u65E5\u672C Help \uFF76 a_b",
         {"\u65E5", "\u672C", "help", "\u30AB",
          "a_b"}}, // each character, the narrow one as a wide one
        {0x804, "\u4E2D\u6587 ok", {"\u4E2D", "\u6587", "ok"}},
    };
    for (const Language& language : languages) {
        const unsigned codePage = workshop::codePageOf(language.number);
        const std::string encoded =
            workshop::encoded(language.text, codePage, [](char32_t) { return "?"; });
        writePages({"<meta charset=utf-8><title>A</title>" + language.text,
                    "<title>B</title>" + encoded, "<title>C</title>other"},
                   "Language=" + std::to_string(language.number) + "\n");
        const CompileOutcome outcome = compile("p.hhp");
        EXPECT_EQ(messagesOf(outcome), Lines());
        std::vector<Question> questions = {{"other", {"2.htm"}}};
        for (const std::string& word : language.words) {
            questions.push_back({word, {"0.htm", "1.htm"}});
        }
        expectFound(outcome.output, questions, codePage);
    }
}

TEST_F(SearchTest, HoldsAnyNumberOfWordsAndPages) {
    constexpr std::size_t pageCount = 300;
    std::mt19937 random(7);
    for (const std::size_t wordCount : {20000U, 120000U}) { // two levels of index and three
        std::vector<std::string> pages(pageCount);
        std::vector<Question> all;
        for (std::size_t i = 0; i < wordCount; ++i) {
            std::string word = "w" + std::to_string(random() % 1000000) + '_' + std::to_string(i);
            Question question{word, {}};
            for (std::size_t copies = i % 100 == 0 ? 40 : 1; copies > 0; --copies) {
                const std::size_t page = random() % pageCount;
                pages[page] += word + (copies % 3 == 0 ? " " : "\n<br>");
                question.pages.insert(std::to_string(page) + ".htm");
            }
            all.push_back(std::move(question));
        }
        for (std::size_t i = 0; i < pageCount; ++i) {
            pages[i] = "<title>Page " + std::to_string(i) + "</title>" + pages[i];
        }
        writePages(pages, "");
        const CompileOutcome outcome = compile("p.hhp");
        const SearchReader reader(outcome.output);
        EXPECT_EQ(reader.depth(), wordCount > 50000 ? 3U : 2U);
        EXPECT_EQ(reader.linkedLeaves(), reader.leaves());
        for (std::size_t i = 0; i < wordCount; i += 97) {
            EXPECT_EQ(reader.find(all[i].word), all[i].pages) << all[i].word;
        }
        EXPECT_EQ(reader.find("page").size(), pageCount);
        if (wordCount < 50000) { // that reader's own fault with more
            std::shuffle(all.begin(), all.end(), random);
            all.resize(200);
            expectFound(outcome.output, all);
        }
    }
}

TEST_F(SearchTest, IsThereWhereItIsAskedFor) {
    const auto facts = [](const CompileOutcome& outcome) {
        const auto file = help::ChmFile::open(outcome.output);
        const std::string system = file->read("/#SYSTEM").value();
        const std::size_t language = system.find(std::string("\x04\0\x24\0", 4)) + 4;
        const std::string windows = file->read("/#WINDOWS").value();
        return std::vector<bool>{!file->read("/$FIftiMain")->empty(), system.at(language + 8) == 1,
                                 (help::numberAt(windows, 8 + 0x10, 4) & 0x400U) != 0};
    };
    CompileOptions own;
    own.fullTextSearch = true;
    writePages({"<title>A</title>the word"}, "Full text search stop list file=stop.txt\n");
    write("stop.txt", "The\nan\n");
    const CompileOutcome outcome = compile("p.hhp");
    EXPECT_EQ(facts(outcome), (std::vector{true, true, true}));
    EXPECT_EQ(SearchReader(outcome.output).find("the"), Pages{});
    EXPECT_EQ(SearchReader(outcome.output).find("word"), Pages{"0.htm"});
    write("plain.hhp", "[FILES]\n0.htm\n");
    EXPECT_EQ(facts(compile("plain.hhp")), (std::vector{false, false, false}));
    EXPECT_EQ(facts(compile("plain.hhp", own)), (std::vector{true, true, true}));
    write("empty.htm", "<p>...</p>");
    write("empty.hhp", "[FILES]\nempty.htm\n");
    EXPECT_EQ(facts(compile("empty.hhp", own)), (std::vector{false, false, false}));
}
