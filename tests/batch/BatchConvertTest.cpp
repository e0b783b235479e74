#include "batch/BatchFixture.h"

using namespace batch;
namespace fs = std::filesystem;

namespace {

class BatchConvert : public test::Batch {
protected:
    fs::path file(const char* name) const { return folder / name; }

    /// The project's facts, from the format on.
    std::string facts(const char* name) {
        run({"info", folder / name});
        return output.substr(output.find("Format"));
    }

    model::TopicOutline outline = test::outlineOf(
        {test::topic(1, "\u0416, &#129;", "a.htm", "one"), test::topic(2, "B", "b.htm", "two")});
};

} // namespace

TEST_F(BatchConvert, ThereAndBackKeepsAll) {
    const std::string project = save("p.tsp", outline);
    const std::string before = test::bytesOf(project);
    EXPECT_EQ(run({"convert", project, folder / "r.tsp", "--language", "RU-ru"}), exitDone);
    EXPECT_EQ(output + errors, "");
    EXPECT_EQ(facts("r.tsp"), "Format: 2\nLanguage: ru-RU\n");
    EXPECT_EQ(test::parsed(test::bytesOf(file("r.tsp"))).outline, outline);
    EXPECT_EQ(run({"convert", folder / "r.tsp", folder / "e.tsp", "--language=en-US"}), exitDone);
    EXPECT_EQ(facts("e.tsp"), "Format: 2\nLanguage: en-US\n") << "nobody asked for format 1";
    EXPECT_EQ(run({"convert", folder / "e.tsp", folder / "e.tsp", "--format", "1"}), exitDone);
    EXPECT_EQ(test::bytesOf(file("e.tsp")), before);
    EXPECT_EQ(run({"convert", project, folder / "2.tsp", "--format=2"}), exitDone);
    EXPECT_EQ(facts("2.tsp"), "Format: 2\nLanguage: en-US\n");
    EXPECT_EQ(test::bytesOf(project), before);
}

TEST_F(BatchConvert, AProjectThatAnotherProgramHasIsNotChanged) {
    const std::string project = save("p.tsp", outline);
    const std::string before = test::bytesOf(project);
    patience = std::chrono::milliseconds(30);
    {
        const model::ProjectLock other(project, patience);
        ASSERT_TRUE(other.isHeld());
        EXPECT_EQ(run({"convert", project, project, "--format=2"}), exitFailed);
        EXPECT_NE(errors.find("another program is writing the file"), std::string::npos) << errors;
        EXPECT_EQ(test::bytesOf(project), before);
        EXPECT_EQ(run({"convert", project, folder / "copy.tsp", "--format=2"}), exitDone)
            << "to read it does no harm";
    }
    EXPECT_EQ(run({"convert", project, project, "--format=2"}), exitDone);
    EXPECT_NE(test::bytesOf(project), before);
}

TEST_F(BatchConvert, NamesWhatFormatOneCannotKeep) {
    outline.at(1).title = "say \"\u0416\" "; // the letter itself is kept
    outline.at(2).body = "&#1046;";
    outline.at(2).fileName = "\u0416.htm";
    model::ProjectOptions options;
    options.languageTag = "ru-RU";
    options.otherKeys = "a=b\r\n";
    options.cssFile = " x";
    const std::string project = save("p.tsp", outline, options);
    const std::string before = test::bytesOf(project);
    const std::string losses = "0\tlanguage\tru-RU\n0\thead\tunknown lines\n0\tstyle sheet\touter "
                               "blanks\n1\ttitle\tdouble quotes\n1\ttitle\touter blanks\n2\tfile "
                               "name\tletters\n2\tbody\treferences\n";
    EXPECT_EQ(run({"convert", project, folder / "1.tsp", "--format", "1"}), exitFailed);
    EXPECT_EQ(output, losses);
    const auto read = test::parsed(test::bytesOf(file("1.tsp")));
    EXPECT_EQ(formatFor(read.options), model::ProjectFormat::one);
    EXPECT_EQ(read.outline.at(1).title, "say '\u0416'");
    EXPECT_EQ(run({"convert", project, project, "--format", "1"}), exitFailed);
    EXPECT_EQ(output, losses);
    EXPECT_NE(errors.find("left as it is"), std::string::npos);
    EXPECT_EQ(test::bytesOf(project), before);
    EXPECT_EQ(run({"convert", project, folder / "2.tsp"}), exitDone);
    EXPECT_EQ(test::parsed(test::bytesOf(file("2.tsp"))).outline, outline);
    EXPECT_EQ(test::parsed(test::bytesOf(file("2.tsp"))).options.otherKeys, "a=b\r\n");
}

TEST_F(BatchConvert, WritesOverNothing) {
    const std::string project = save("p.tsp", outline);
    save("other.tsp", test::flatOutline(1));
    const std::string other = test::bytesOf(file("other.tsp"));
    EXPECT_EQ(run({"convert", project, folder / "other.tsp", "--format=2"}), exitFailed);
    EXPECT_EQ(test::bytesOf(file("other.tsp")), other);
    EXPECT_EQ(errors,
              "Error: " + std::string(folder / "other.tsp") + ": the file is there already\n");
    test::writeBytes(file("cut.tsp"), other.substr(0, other.size() - 20));
    EXPECT_EQ(run({"convert", folder / "cut.tsp", folder / "new.tsp"}), exitFailed);
    EXPECT_FALSE(fs::exists(file("new.tsp")));
    for (const char* wrong : {"--format=3", "--language=tlh"}) {
        EXPECT_EQ(run({"convert", project, folder / "new.tsp", wrong}), exitUsage);
        EXPECT_FALSE(fs::exists(file("new.tsp")));
    }
    EXPECT_NE(errors.find(" uk-UA"), std::string::npos);
}

TEST_F(BatchConvert, TopicsGoIntoAnotherProject) {
    model::ProjectOptions options;
    options.languageTag = "ru-RU";
    options.keepsEveryCharacter = true;
    options.additionalText = "several\r\nlines";
    const std::string body = "<p title=\"it's\">\xD0\x9F \xC3\x9C & \"q\"</p>\r\n<!-- \" -->";
    const std::string source =
        save("a.tsp",
             test::outlineOf({test::topic(1, "\xD0\x9F 1, \xC3\x9C", "a.htm", body),
                              test::topic(3, "B", "b.htm", "")}),
             options);
    const std::string target = folder / "p.tsp";
    EXPECT_EQ(run({"export-topics", source, folder / "out.tsp"}), exitFailed);
    EXPECT_EQ(output, "1\tbody\tdouble quotes\n"); // in a comment
    EXPECT_EQ(run({"import-topics", target, folder / "out.tsp", "--strict"}), exitDone);
    EXPECT_EQ(output + errors, "2 topics imported\n");
    const auto topics = test::parsed(test::bytesOf(target)).outline;
    EXPECT_EQ(topics.at(1).title, "\xD0\x9F 1, \xC3\x9C");
    EXPECT_EQ(topics.at(1).body,
              "<p title='it&#39;s'>\xD0\x9F \xC3\x9C & &quot;q&quot;</p>\r\n<!-- ' -->");
    EXPECT_EQ(topics.at(2).level, "....3");
    EXPECT_EQ(run({"export-topics", source, source}), exitFailed);
    EXPECT_EQ(run({"export-topics", source, folder / "out.tsp"}), exitFailed);
}
