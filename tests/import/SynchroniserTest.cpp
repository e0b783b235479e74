#include "import/Synchroniser.h"

#include <gtest/gtest.h>

#include "generate/GenerationRun.h"
#include "import/EditedPages.h"
#include "import/ImportOutcome.h"
#include "model/ProtectedBlock.h"
#include "support/TestFiles.h"

using namespace importer;
using test::lines;
using namespace text;

namespace {

const Text start = "<!-- HTML Topicsmith Custom Code *Do Not Remove* [";
const Text end = "<!-- HTML Topicsmith End Code *Do Not Remove* -->";

class SynchroniserTest : public testing::Test {
protected:
    /// A topic with a status and the body "old", and its page with a block as generated for that.
    void add(const Text& status, const Text& block, const Text& length = "3") {
        const Text page = "t" + std::to_string(outline.count() + 1) + ".htm";
        outline.append(test::topic(1, page, page, "old"));
        outline.at(outline.count()).status = status;
        test::writeBytes(folder / page,
                         "<html>\r\n" + start + length + "] -->\r\n" + block + end + "\r\n</html>");
    }

    Synchronisation run() {
        project.replace(outline, {}, "p.tsp");
        return synchronise(project, folder.path());
    }

    test::TemporaryFolder folder;
    model::TopicOutline outline;
    model::Project project;
};

} // namespace

TEST(ProtectedBlock, IsFoundAsItWasWritten) {
    for (const Text& body :
         {Text("x"), Text(""), Text("\r\n"), Text("a\r\n\r\nb\r\n"), Text("a\nb\rc"),
          start + "9] -->\r\nx", "\u00E9\u0416\r\n" + end + "\r\n\u0416",
          "\u00E9\n" + end + "\n\n\u0416"}) {
        Text page = "<p>\r\n";
        model::appendProtectedBlock(page, body, text::CodePage());
        const auto block = model::findProtectedBlock(page, text::CodePage());
        ASSERT_TRUE(block);
        const Text content = body.empty() ? Text(model::placeholderBody) : body;
        EXPECT_EQ(block->asIs, content);
        EXPECT_EQ(block->generatedLength, static_cast<int>(text::CodePage().encodedSize(content)));
    }
}

TEST(ProtectedBlock, IsWholeOrNone) {
    EXPECT_FALSE(model::findProtectedBlock("x " + start + "1] -->\nx\n" + end, text::CodePage()));
    EXPECT_FALSE(model::findProtectedBlock(start + "1] -->\nx\n " + end, text::CodePage()));
    EXPECT_FALSE(model::findProtectedBlock(end + '\n' + start + "1] -->\nx", text::CodePage()));
    const Text page = start + "12abc\n\nx\n\n" + end;
    const auto block = model::findProtectedBlock(page, text::CodePage());
    ASSERT_TRUE(block);
    EXPECT_EQ(block->content, "\r\nx\r\n");
    EXPECT_EQ(block->generatedLength, 12);
    const Text empty = start + "99999999999] -->\n" + end;
    EXPECT_EQ(model::findProtectedBlock(empty, text::CodePage())->content, "");
    EXPECT_EQ(model::findProtectedBlock(empty, text::CodePage())->generatedLength, 0);
}

TEST_F(SynchroniserTest, TakesEditsUnlessTheTopicWasChangedToo) {
    for (const char* status : {"", "E", "C", "N", "S", "M"}) {
        add(status, "edited\r\n");
    }
    const Synchronisation result = run();
    EXPECT_EQ(result.changed, (std::vector{1, 2}));
    EXPECT_EQ(project.outline().at(1).body + project.outline().at(1).status, "editedS");
    EXPECT_EQ(project.outline().at(2).status, "S");
    EXPECT_EQ(project.outline().at(3).body, "old");
    ASSERT_EQ(result.conflicts.size(), 4);
    EXPECT_EQ(result.conflicts[0].text,
              "File \"t3.htm\" has a difference content from Stored Body.  Synchronization is not "
              "possible");
    EXPECT_EQ(summary(result), "2 topics taken back, 4 conflicts");
    project.undo();
    EXPECT_EQ(project.outline(), outline);
    EXPECT_FALSE(project.dataChanged());
}

TEST_F(SynchroniserTest, SavingExplainsApostrophesOnlyWhereItMakesThem) {
    add("C", "<a href=\"x\">\r\n");
    outline.at(1).body = "<a href='x'>";
    EXPECT_TRUE(run().conflicts.empty());
    model::ProjectOptions options;
    options.keepsEveryCharacter = true;
    project.replace(outline, options, "p.tsp");
    EXPECT_EQ(synchronise(project, folder.path()).conflicts.size(), 1);
}

TEST_F(SynchroniserTest, LeavesWhatNobodyEdited) {
    add("", "old\r\n");
    add("C", "new\r\n"); // an edit of the same length cannot be told from none
    add("", Text(model::placeholderBody) + "\r\n");
    add("C", Text(model::placeholderBody) + "\r\n");
    outline.append(test::topic(1, "missing", "missing.htm"));
    outline.append(
        test::topic(1, "outside", "../" + folder.path().filename().string() + "/t1.htm"));
    add("", "never ended\r\n" + start + "\r\n");
    test::writeBytes(folder / "t7.htm", start + "3] -->\r\nnever ended\r\n");
    const Synchronisation result = run();
    EXPECT_TRUE(result.changed.empty());
    EXPECT_TRUE(result.conflicts.empty());
    EXPECT_EQ(result.withoutText.size(), 3U);
    EXPECT_EQ(project.outline(), outline);
    EXPECT_FALSE(project.dataChanged());
}

TEST_F(SynchroniserTest, PagesThatCannotBeTakenBackAreNamed) {
    for (int i = 0; i < 3; ++i) {
        add("", "edited\r\n");
    }
    test::writeBytes(folder / "t1.htm", "<p>" + start + "3] --> joined " + end);
    std::filesystem::remove(folder / "t2.htm");
    std::filesystem::create_directory(folder / "t2.htm");
    std::filesystem::remove(folder / "t3.htm");
    outline.append(test::topic(1, "outside", "../t1.htm"));
    const Synchronisation result = run();
    EXPECT_EQ(summary(result),
              "No topics taken back, no conflicts, 3 pages missing or damaged, 1 page unreadable");
    EXPECT_EQ(untouchedPages(result),
              ": t2.htm (Is a directory), t1.htm (the marker lines around its text are missing or "
              "damaged), t3.htm (No such file or directory), t1.htm (the file name does not stay "
              "inside the page folder)");
}

/// The end marker's own line in a text must not cut it.
TEST_F(SynchroniserTest, ATextMayHoldTheEndMarker) {
    const Text body = "one\r\n" + end + "\r\ntwo";
    const Text length = std::to_string(body.size());
    add("", body + "\r\n", length);
    add("C", body + "\r\n", length);
    add("", "more " + body + "\r\n", length);
    add("", "two edited\r\n", length);
    for (const int position : {1, 3, 4}) {
        outline.at(position).body = body;
    }
    const Synchronisation result = run();
    EXPECT_EQ(summary(result), "1 topic taken back, no conflicts, 1 page missing or damaged");
    EXPECT_EQ(untouchedPages(result),
              ": t3.htm (its text holds the end marker, so its end is not known)");
    EXPECT_EQ(project.outline().at(3).body, body);
    EXPECT_EQ(project.outline().at(4).body, "two edited");
}

TEST_F(SynchroniserTest, ConvertedLineEndsAreNoEdit) {
    add("", "two\nlines\n");
    add("C", "two\nlines\n", "10");
    add("", "two\r\nlines\r\n");
    outline.at(1).body = "two\r\nlines";
    outline.at(2).body = "rewritten";
    outline.at(3).body = "two\nlines";
    EXPECT_TRUE(run().changed.empty());
    EXPECT_EQ(summary(run()), "No topics taken back, no conflicts");
}

TEST_F(SynchroniserTest, QuotesThatSavingReplacesAreNoConflict) {
    add("S", "  <p class=\"x\">new</p>\r\n");
    outline.at(1).body = "<p class='x'>new</p>";
    EXPECT_TRUE(run().conflicts.empty());
    outline.at(1).status = "";
    EXPECT_EQ(run().changed, std::vector{1});
}

/// Generate, edit as an HTML editor would, take back, generate again.
TEST_F(SynchroniserTest, PagesComeBackAsTheyWereEdited) {
    outline =
        test::outlineOf({test::topic(1, "A", "a.htm", "<p>Caf\u00E9</p>\r\n<p>more</p>\r\n"),
                         test::topic(1, "B", "b.htm", ""), test::topic(1, "C", "c.htm", "c")});
    project.replace(outline, {}, folder / "p.tsp");
    const auto generate = [this] {
        generate::generateHelp(
            project,
            {folder / "p.hhp", test::programFolder(), [] { return std::error_code(); }, {}});
    };
    generate();
    EXPECT_TRUE(synchronise(project, folder / "html").changed.empty());
    const auto edit = [this](const char* page, const Text& from, const Text& to) {
        Text bytes = test::bytesOf(folder / "html" / page);
        bytes.replace(bytes.find(from), from.size(), to);
        test::writeBytes(folder / "html" / page, bytes);
    };
    edit("a.htm", "<p>more</p>\r\n", "<p>\xE0 la &#1055;</p>\r\n\r\n");
    edit("b.htm", "Descriptive text goes here.", "Text at last.");
    edit("c.htm", end.substr(0, 20), "<!-- gone");
    const model::FileFailures edited = editedPages(project, folder / "html");
    EXPECT_EQ(named(edited), ": a.htm (was edited since it was generated), b.htm (was edited since "
                             "it was generated), c.htm (the marker lines around its text are "
                             "missing or damaged)");
    project.setField(1, &model::Topic::status, "C");
    EXPECT_EQ(editedPages(project, folder / "html").front().reason,
              "was edited since it was generated, and so was its topic");
    project.setField(1, &model::Topic::status, "");
    EXPECT_EQ(synchronise(project, folder / "html").changed, (std::vector{1, 2}));
    EXPECT_EQ(project.outline().at(1).body, "<p>Caf\u00E9</p>\r\n<p>\u00E0 la \u041F</p>\r\n\r\n");
    EXPECT_NE(project.outline().at(2).body.find("Text at last."), Text::npos);
    generate();
    const Synchronisation again = synchronise(project, folder / "html");
    EXPECT_TRUE(again.changed.empty() && again.conflicts.empty() && again.withoutText.empty());
    EXPECT_EQ(project.outline().at(1).status, "");
    project.setField(1, &model::Topic::body, "newer than its page");
    project.setField(1, &model::Topic::status, "C");
    EXPECT_TRUE(editedPages(project, folder / "html").empty());
}

TEST_F(SynchroniserTest, PagesOfEveryEncodingComeBack) {
    const Text body = "<p>\u00C3\u00A9 \u0416 \u30BD</p>"; // the first two could be UTF-8 by chance
    for (const char* language : {"en-US", "ru-RU", "ja-JP"}) {
        model::ProjectOptions options;
        options.languageTag = language;
        project.replace(test::outlineOf({test::topic(1, "A", "a.htm", body)}), options,
                        folder / "p.tsp");
        generate::generateHelp(
            project,
            {folder / "p.hhp", test::programFolder(), [] { return std::error_code(); }, {}});
        EXPECT_TRUE(synchronise(project, folder / "html").changed.empty()) << language;
        const auto page = folder / "html/a.htm";
        Text edited = options.codePage().decodedHtml(test::bytesOf(page));
        edited.replace(edited.find(body) + 3, 0, "\u03A9");
        test::writeBytes(page, "\xEF\xBB\xBF" + edited);
        EXPECT_EQ(synchronise(project, folder / "html").changed, std::vector{1}) << language;
        EXPECT_EQ(project.outline().at(1).body, Text(body).insert(3, "\u03A9")) << language;
    }
}
