#include "import/Synchroniser.h"

#include <gtest/gtest.h>

#include "generate/GenerationRun.h"
#include "model/ProtectedBlock.h"
#include "support/TestFiles.h"

using namespace importer;
using model::Text;
using test::lines;

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
    for (const Text& body : {Text("x"), Text(""), Text("\r\n"), Text("a\r\n\r\nb\r\n"),
                             Text("a\nb\rc"), start + "9] -->\r\nx"}) {
        Text page = "<p>\r\n";
        model::appendProtectedBlock(page, body);
        const auto block = model::findProtectedBlock(page);
        ASSERT_TRUE(block);
        const Text content = body.empty() ? Text(model::placeholderBody) : body;
        EXPECT_EQ(block->asIs, content);
        EXPECT_EQ(block->generatedLength, static_cast<int>(content.size()));
    }
}

TEST(ProtectedBlock, IsWholeOrNone) {
    EXPECT_FALSE(model::findProtectedBlock("x " + start + "1] -->\nx\n" + end));
    EXPECT_FALSE(model::findProtectedBlock(start + "1] -->\nx\n " + end));
    EXPECT_FALSE(model::findProtectedBlock(end + '\n' + start + "1] -->\nx"));
    const Text page = start + "12abc\n\nx\n\n" + end;
    const auto block = model::findProtectedBlock(page);
    ASSERT_TRUE(block);
    EXPECT_EQ(block->content, "\r\nx\r\n");
    EXPECT_EQ(block->generatedLength, 12);
    const Text empty = start + "99999999999] -->\n" + end;
    EXPECT_EQ(model::findProtectedBlock(empty)->content, "");
    EXPECT_EQ(model::findProtectedBlock(empty)->generatedLength, 0);
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
    EXPECT_EQ(result.withoutPage, (std::vector{5, 6, 7}));
    EXPECT_EQ(project.outline(), outline);
    EXPECT_FALSE(project.dataChanged());
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
        test::outlineOf({test::topic(1, "A", "a.htm", "<p>Caf\xE9</p>\r\n<p>more</p>\r\n"),
                         test::topic(1, "B", "b.htm", ""), test::topic(1, "C", "c.htm", "c")});
    project.replace(outline, {}, folder / "p.tsp");
    const auto generate = [this] {
        generate::generateHelp(
            project,
            {folder / "p.hhp", TOPICSMITH_PROGRAM_FOLDER, [] { return std::error_code(); }, {}});
    };
    generate();
    EXPECT_TRUE(synchronise(project, folder / "html").changed.empty());
    const auto edit = [this](const char* page, const Text& from, const Text& to) {
        Text bytes = test::bytesOf(folder / "html" / page);
        bytes.replace(bytes.find(from), from.size(), to);
        test::writeBytes(folder / "html" / page, bytes);
    };
    edit("a.htm", "<p>more</p>\r\n", "<p>\xE0 la carte</p>\r\n\r\n");
    edit("b.htm", "Descriptive text goes here.", "Text at last.");
    EXPECT_EQ(synchronise(project, folder / "html").changed, (std::vector{1, 2}));
    EXPECT_EQ(project.outline().at(1).body, "<p>Caf\xE9</p>\r\n<p>\xE0 la carte</p>\r\n\r\n");
    EXPECT_NE(project.outline().at(2).body.find("Text at last."), Text::npos);
    generate();
    const Synchronisation again = synchronise(project, folder / "html");
    EXPECT_TRUE(again.changed.empty() && again.conflicts.empty() && again.withoutPage.empty());
    EXPECT_EQ(project.outline().at(1).status, "");
}
