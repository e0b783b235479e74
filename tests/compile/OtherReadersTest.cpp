#include <gtest/gtest.h>
#include <random>

#include "compile/Container.h"
#include "compile/Judges.h"
#include "support/TestFiles.h"

using namespace compile;
using test::Files;

namespace {

std::string packed(const Files& files) {
    Container container({});
    for (const auto& [name, content] : files) {
        const Section section = name.starts_with("/#") ? Section::plain : Section::compressed;
        EXPECT_TRUE(container.add(name, content, section)) << name;
    }
    return container.pack().value_or("");
}

std::string randomBytes(std::size_t size, std::mt19937& random, unsigned different = 256) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() % different);
    }
    return bytes;
}

/// Words of a few letters, as pages have them.
std::string words(std::size_t size, std::mt19937& random) {
    std::string text = "<p class=\"caf\xE9\">";
    while (text.size() < size) {
        text +=
            "word" + std::to_string(random() % 500) + (random() % 9 == 0 ? ".</p>\r\n<p>" : " ");
    }
    return text;
}

/// Files with names of a length, so many that the directory gets so many levels.
Files manyFiles(std::size_t count, std::size_t nameLength, std::mt19937& random) {
    Files files;
    for (std::size_t i = 0; i < count; ++i) {
        std::string name = "/Folder " + std::to_string(i % 7) + "/" + std::to_string(random());
        name.append(nameLength - std::min(name.size(), nameLength), i % 2 == 0 ? 'n' : 'N');
        files.emplace(name + std::to_string(i), words(random() % 300, random));
    }
    return files;
}

Files oddNames() {
    Files files;
    for (const char* name :
         {"/a.htm", "/B.htm", "/_c.htm", "/a_b.htm", "/aB.htm2", "/html/Sub/UPPER.HTM",
          "/html/with blanks (and brackets) [1] {2}.htm", "/html/Größe & Überblick.htm",
          "/html/\xD0\x9F\xD1\x80.htm", "/html/no ending", "/html/100%.htm", "/html/a'b;c,d+e.htm",
          "/#SYSTEM", "/#empty", "/$WWKeywordLinks/BTree"}) {
        files.emplace(name, std::string("content of ") + name);
    }
    files["/#empty"] = "";
    files["/empty"] = "";
    files["/" + std::string(250, 'l')] = "a long name";
    return files;
}

/// What compressors get wrong: nothing to find, nothing but the same, repetitions of every
/// distance, very rare bytes, ends of frames and intervals, and changes from one kind to another.
Files hostileContents(std::mt19937& random) {
    constexpr std::size_t interval = 65536;
    Files files;
    files["/1 zeros"] = std::string(3 * interval + 1, '\0');
    files["/2 random"] = randomBytes(2 * interval + 7, random);
    files["/3 words"] = words(5 * interval, random);
    for (const unsigned distance : {1U, 2U, 3U, 257U, 32767U, 32768U, 65530U, 65533U, 65534U}) {
        const std::string piece = randomBytes(distance, random);
        std::string& content = files["/4 every " + std::to_string(distance)];
        while (content.size() < 2 * interval) {
            content += piece;
        }
    }
    std::string& rare = files["/5 rare"]; // codes would become longer than they may
    for (std::size_t count = 1, next = 1; rare.size() < interval;
         next += std::exchange(count, next)) {
        rare.append(count, static_cast<char>(rare.size() % 251));
    }
    std::shuffle(rare.begin(), rare.end(), random);
    std::string& mixed = files["/6 mixed"];
    for (std::size_t size = 1; mixed.size() < 6 * interval; size = size * 7 % 30011) {
        mixed += random() % 2 == 0 ? randomBytes(size, random) : words(size, random);
    }
    for (const unsigned different : {2U, 3U, 17U}) {
        files["/7 of " + std::to_string(different)] = randomBytes(interval, random, different);
    }
    return files;
}

} // namespace

TEST(OtherReaders, FindEveryFile) {
    std::mt19937 random(20);
    const struct {
        const char* name;
        Files files;
        unsigned levels;
    } sets[] = {
        {"odd names", oddNames(), 1},
        {"one file", {{"/a", "a"}}, 1},
        {"hostile contents", hostileContents(random), 1},
        {"500 files", manyFiles(500, 20, random), 2},
        {"3500 long names", manyFiles(3500, 200, random), 3},
    };
    const test::TemporaryFolder folder;
    for (const auto& set : sets) {
        SCOPED_TRACE(set.name);
        const std::string bytes = packed(set.files);
        constexpr std::size_t levelsPlace = 0x78 + 0x18;
        EXPECT_EQ(static_cast<unsigned>(bytes.at(levelsPlace)), set.levels);
        test::writeBytes(folder / "help.chm", bytes);
        test::expectReadersFind(set.files, folder / "help.chm");
    }
}

TEST(OtherReaders, FindALargeFile) {
    constexpr std::size_t tenMegabytes = std::size_t(10) << 20;
    std::mt19937 random(21);
    std::string large = words(tenMegabytes, random);
    large += randomBytes(tenMegabytes, random);
    large.resize(3 * tenMegabytes);
    const Files files{{"/large", large}, {"/small", "small"}};
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "help.chm", packed(files));
    test::expectReadersFind(files, folder / "help.chm");
}
