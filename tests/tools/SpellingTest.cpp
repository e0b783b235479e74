#include "tools/Spelling.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "text/CharacterReferences.h"
#include "tools/SpellingScan.h"

using namespace tools;
using text::characterReferenceAt;
namespace fs = std::filesystem;

namespace {

/// "word@start+length" of each word.
std::string wordsOf(TextView text) {
    std::string words;
    WordReader reader(text);
    while (const auto word = reader.next()) {
        words += (words.empty() ? "" : " ") + word->letters + '@' + std::to_string(word->start)
                 + '+' + std::to_string(word->length);
    }
    return words;
}

/// The words alone.
std::string letters(TextView text) {
    std::string words;
    WordReader reader(text);
    while (const auto word = reader.next()) {
        words += (words.empty() ? "" : " ") + word->letters;
    }
    return words;
}

const std::vector<fs::path> folders = {test::sourceFolder() / "tests/data/spelling"};

class SpellingTest : public testing::Test {
protected:
    SpellingTest() : dictionary(Dictionary::open(folders, "xx_TEST")) {}

    /// Begins with a text and goes to its first unknown word.
    std::string begin(Text text) {
        spelling.begin(std::move(text));
        return next();
    }
    std::string next() { return spelling.next() ? spelling.word().letters : "-"; }

    test::TemporaryFolder folder;
    std::unique_ptr<Dictionary> dictionary;
    PersonalWords personal{folder / "personal.txt"};
    Spelling spelling{*dictionary, personal};
};

} // namespace

TEST(WordReader, FindsWordsWithTheirPlaces) {
    EXPECT_EQ(wordsOf("The fox,\r\n'tis so!"), "The@0+3 fox@4+3 tis@11+3 so@15+2");
    EXPECT_EQ(wordsOf("caf&eacute; &#233;t\u00E9 na&#xEF;ve"), "café@0+11 été@12+9 naïve@22+10");
    EXPECT_EQ(wordsOf("don't don\u2019t don&rsquo;t \u2019x\u2019"),
              "don't@0+5 don't@6+7 don't@14+11 x@29+1");
    EXPECT_EQ(wordsOf("a&nbsp;b&amp;c &#937;mega"), "a@0+1 b@7+1 c@13+1 Ωmega@15+10");
    EXPECT_EQ(wordsOf("well-known and/or"), "well@0+4 known@5+5 and@11+3 or@15+2");
    EXPECT_EQ(wordsOf(""), "");
}

TEST(WordReader, LeavesOutWhatIsNoProse) {
    EXPECT_EQ(letters("<p title='no > no' class=no>yes <!-- no > no --> yes<br>yes</p>"),
              "yes yes yes");
    EXPECT_EQ(
        letters(
            "see http://no.example/no, no@no.no, www.no.no, C:\\no\\no, no.htm, no_no, /no/no."),
        "see");
    EXPECT_EQ(letters("<pre>no</pre>yes <CODE>no <b>no</b></code> yes<script>no</script>"),
              "yes yes");
    EXPECT_EQ(letters("MP3 2nd x64 A4 &foo; soft&shy;en &bogus"), "bogus");
    EXPECT_EQ(letters("<b>d</b>ivided un<i>div</i> <b>whole</b>, <a href='x'>link</a>ed it"),
              "whole it");
}

TEST(WordReader, SeesAllThatIsProse) {
    EXPECT_EQ(letters("He said 'one two.' \u2018three.\u2019 End."), "He said one two three End");
    EXPECT_EQ(letters("doesn&#146;t five&dagger; six&rarr;seven"), "doesn't five six seven");
    EXPECT_EQ(letters("if x <5 then <b>bold</b>"), "if x then bold");
    EXPECT_EQ(letters("<p align=it's>one</p> don't <b>x</b> wo<!-- c -->rd"), "one don't x");
    EXPECT_EQ(letters("<p title='" + Text(5000, 'x') + "'>one"), "one");
    const Text text = "one/two";
    EXPECT_EQ(WordReader(text, 3).next()->letters, "two");
}

TEST(WordReader, BearsWithBrokenMarkUp) {
    EXPECT_EQ(letters("a < b and x <p title='open>yes</p> <b"), "a b and x yes b");
    EXPECT_EQ(letters("yes <!-- open no"), "yes");
    EXPECT_EQ(letters("<pre>still text"), "still text");
    EXPECT_EQ(letters("&;&#;&#x; &#99999999; yes & no &amp yes"), "yes no amp yes");
    const Text many(100'000, '<');
    EXPECT_EQ(letters(many + "a" + many), "a");
    Text code;
    for (int i = 0; i < 100'000; ++i) {
        code += "<code><a b='>'<a'<x=\"";
    }
    letters(code); // a walk to the end for each would take minutes
}

TEST(CharacterReference, NeedsNameAndSemicolon) {
    EXPECT_EQ(characterReferenceAt("&yuml;", 0).character, 0xFFU);
    EXPECT_EQ(characterReferenceAt("x&nbsp;", 1).character, 0xA0U);
    EXPECT_EQ(characterReferenceAt("&euro;", 0).length, 6U);
    EXPECT_EQ(characterReferenceAt("&#x20ac;", 0).character, 0x20ACU);
    EXPECT_EQ(characterReferenceAt("&eacute", 0).length, 0U);
    EXPECT_EQ(characterReferenceAt("&a b;", 0).length, 0U);
    EXPECT_EQ(characterReferenceAt("&unheardof;", 0).character, text::unknownCharacter);
}

TEST(Dictionary, KnowsItsEncoding) {
    EXPECT_EQ(Dictionary::languages(folders), (std::vector<std::string>{"xx_LATIN", "xx_TEST"}));
    EXPECT_EQ(Dictionary::open(folders, "xx_GREEK"), nullptr);
    for (const char* language : {"xx_TEST", "xx_LATIN"}) {
        const auto dictionary = Dictionary::open(folders, language);
        EXPECT_TRUE(dictionary->knows("café"));
        EXPECT_FALSE(dictionary->knows("caffé"));
        EXPECT_EQ(dictionary->suggestions("caffé").front(), "café");
    }
}

TEST_F(SpellingTest, WhileTypingLeavesOutTagsAndVariables) {
    const auto unknown = [this](const Text& text) {
        SpellingScan scan(text, *dictionary, personal);
        while (scan.goOn(1)) {
        }
        Text words;
        for (const SpellingWord& word : scan.unknown()) {
            words += word.letters + ' ';
        }
        return words;
    };
    EXPECT_EQ(unknown("qqa <b>qqb</b> qqc"), "qqa qqb qqc ");
    EXPECT_EQ(unknown("qqa <qqb qqc='qqd\nqqe"), "qqa qqe ") << "nobody has ended the tag yet";
    EXPECT_EQ(unknown("qqa </qqb"), "qqa ");
    EXPECT_EQ(unknown("qqa < qqb {qqc}} {{qqd}"), "qqa qqb qqc qqd ") << "these are neither";
    EXPECT_EQ(unknown("{{qqa}} {{qqb-qqc}}qqe{{qqf}}"), "qqe ");
}

TEST_F(SpellingTest, ComesBackUnchangedToTheByte) {
    const Text text = "<p>The fox\r\n\n\tdon\u2019t  caf&eacute; \u0081</p>";
    EXPECT_EQ(begin(text), "-");
    EXPECT_EQ(spelling.text(), text);
    EXPECT_EQ(begin("f&ouml;ks"), "föks");
    spelling.change("föks");
    EXPECT_EQ(next(), "-");
    EXPECT_EQ(spelling.text(), "f&ouml;ks");
}

TEST_F(SpellingTest, CorrectsInPlace) {
    EXPECT_EQ(begin("The qick <b class='foks'>brwn</b> foks\r\ndon\u2019"
                    "d qick"),
              "qick");
    spelling.change("quick");
    EXPECT_EQ(next(), "brwn");
    spelling.change("");
    EXPECT_EQ(next(), "foks");
    EXPECT_EQ(spelling.word().start, 31U);
    spelling.change("fox & Ω");
    EXPECT_EQ(next(), "don'd");
    spelling.change("don't");
    EXPECT_EQ(next(), "qick");
    EXPECT_EQ(next(), "-");
    EXPECT_EQ(spelling.text(), "The quick <b class='foks'></b> fox & \u03A9\r\ndon\u2019t qick");
}

TEST_F(SpellingTest, ChangesAndIgnoresEverywhere) {
    EXPECT_EQ(begin("qick foks qick x\u00E9 foks brwn"), "qick");
    spelling.changeAll("quickly");
    EXPECT_EQ(next(), "foks");
    spelling.ignoreAll();
    EXPECT_EQ(next(), "xé");
    EXPECT_EQ(spelling.word().start, 21U);
    EXPECT_EQ(next(), "brwn");
    EXPECT_EQ(spelling.text().substr(spelling.word().start), "brwn");
    spelling.change("brown");
    EXPECT_EQ(next(), "-");
    EXPECT_EQ(spelling.text(), "quickly foks quickly x\u00E9 foks brown");
    EXPECT_EQ(begin("qick foks"), "-");
    EXPECT_EQ(spelling.text(), "quickly foks");
}

TEST_F(SpellingTest, KeepsAddedWordsAndGoesOnInAnotherLanguage) {
    EXPECT_EQ(begin("na\u00EFv"), "naïv");
    EXPECT_FALSE(spelling.add());
    EXPECT_EQ(begin("na&iuml;v fox"), "-");
    PersonalWords again(folder / "personal.txt");
    EXPECT_TRUE(again.knows("naïv"));
    EXPECT_FALSE(again.knows(""));
    EXPECT_EQ(begin("foks fox"), "foks");
    const auto other = Dictionary::open(folders, "xx_LATIN");
    spelling.setDictionary(*other);
    EXPECT_EQ(next(), "foks");
    EXPECT_EQ(next(), "fox");
}
