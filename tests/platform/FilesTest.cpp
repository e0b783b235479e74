#include "platform/Files.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;

TEST(Files, ReplacingKeepsEveryByteAndLeavesNothingBeside) {
    const test::TemporaryFolder folder;
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    EXPECT_FALSE(platform::replaceFile(folder / "new", all));
    EXPECT_EQ(bytesOf(folder / "new"), all);
    EXPECT_FALSE(platform::replaceFile(folder / "new", "short"));
    EXPECT_EQ(bytesOf(folder / "new"), "short");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(Files, FailedReplacementLeavesTheOldFile) {
    const test::TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    EXPECT_EQ(platform::replaceFile(folder / "folder", "x"), std::errc::is_a_directory);
    EXPECT_EQ(platform::replaceFile(folder / "missing/file", "x"),
              std::errc::no_such_file_or_directory);

    EXPECT_EQ(folder.fileCount(), 1U) << "a temporary file was left behind";
}

TEST(Files, NamesMayBeLongAndInAnyScript) {
    const test::TemporaryFolder folder;
    fs::path place = folder.path();
    for (int i = 0; i < 4; ++i) {
        place /= platform::pathFromUtf8("\u00C4\u03A9\u65E5 " + std::string(80, 'x'));
        fs::create_directory(place);
    }
    ASSERT_GT(place.native().size(), 260U);
    EXPECT_FALSE(platform::replaceFile(place / "p.tsp", "old"));
    EXPECT_FALSE(platform::replaceFile(place / "p.tsp", "new"));
    EXPECT_FALSE(platform::writeFile(place / "page.htm", "page"));
    EXPECT_EQ(bytesOf(place / "p.tsp"), "new");
    EXPECT_EQ(bytesOf(place / "page.htm"), "page");
    EXPECT_TRUE(fs::equivalent(place / "p.tsp", place / ".." / place.filename() / "p.tsp"));
}

TEST(Files, CreatingTouchesNothingThatIsThere) {
    const test::TemporaryFolder folder;
    platform::FileFacts facts;
    EXPECT_FALSE(platform::createFile(folder / "new", "bytes", facts));
    EXPECT_EQ(bytesOf(folder / "new"), "bytes");
    EXPECT_EQ(facts, platform::fileFacts(folder / "new"));
    EXPECT_EQ(facts.size, 5U);

    fs::create_directory(folder / "folder");
    const bool hasLink = test::makeLink(folder / "nowhere", folder / "link");
    const auto time = fs::last_write_time(folder / "new");
    for (const char* name : {"new", "folder", "link"}) {
        if (hasLink || name != std::string_view("link")) {
            EXPECT_TRUE(platform::createFile(folder / name, "other", facts)) << name;
        }
    }
    EXPECT_EQ(bytesOf(folder / "new"), "bytes");
    EXPECT_EQ(fs::last_write_time(folder / "new"), time);
    EXPECT_FALSE(fs::exists(folder / "nowhere")) << "a link leads to another file";
    EXPECT_EQ(platform::createFile(folder / "missing/file", "x", facts),
              std::errc::no_such_file_or_directory);
}

TEST(Files, AFolderIsTheSameByAllItsNames) {
    const test::TemporaryFolder folder;
    const fs::path inner = folder / "inner";
    fs::create_directories(inner / "below");
    writeBytes(inner / "file", "x");
    for (const fs::path& name : {inner / "", inner / ".", inner / "below" / ".."}) {
        EXPECT_TRUE(platform::isSameFile(inner, name)) << name;
        EXPECT_EQ(platform::fullPath(name).lexically_normal(), platform::fullPath(name)) << name;
    }
    EXPECT_TRUE(platform::isSameFile(inner / "file", inner / "below/../file"));
    EXPECT_FALSE(platform::isSameFile(inner, inner / "below"));
    EXPECT_FALSE(platform::isSameFile(inner / "missing", inner / "missing"));
}

TEST(Files, ARootHoldsWhatLiesBelowItAndAFolderNothingElse) {
    const test::TemporaryFolder folder;
    const fs::path inner = folder / "inner";
    fs::create_directory(inner);
    writeBytes(inner / "file", "x");
    writeBytes(folder / "inner file", "x");
    EXPECT_FALSE(platform::leadsOutOf(inner.root_path(), inner / "file"));
    EXPECT_FALSE(platform::leadsOutOf(inner, inner / "file"));
    EXPECT_TRUE(platform::leadsOutOf(inner, folder / "inner file"));
}
