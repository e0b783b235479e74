#include <gtest/gtest.h>
#include <random>

#include "support/TestFiles.h"

using namespace model;
using namespace text;
using test::lines;

namespace {

class Random {
public:
    std::size_t below(std::size_t end) { return engine_() % end; }

    /// So many of the given pieces, or of the characters that the maker gives.
    template <typename Maker>
    std::string text(std::span<const TextView> pieces, const Maker& make) {
        std::string text;
        for (std::size_t length = below(30); length > 0; --length) {
            if (below(3) == 0) {
                text += pieces[below(pieces.size())];
            } else {
                make(text);
            }
        }
        return text;
    }

private:
    std::mt19937 engine_{20}; // the same ones each time
};

/// As format 1 has a field that is read as these bytes.
std::string quoted(const std::string& bytes) {
    return bytes.find_first_of(",\r") == std::string::npos ? bytes : '"' + bytes + '"';
}

ProjectOptions russian() {
    ProjectOptions options;
    options.languageTag = "ru-RU";
    options.projectName = " \"\u0418\u043C\u044F\" ";
    options.cssFile = " \u0441.css";
    options.additionalText = "\"&#1055;\", ";
    return options;
}

} // namespace

TEST(ProjectFormat, WhateverBytesFormatOneHoldsComeBack) {
    constexpr TextView pieces[] = {",",  "\r\n",    "\r",       "\n",     " ",
                                   "&#", "&#1055;", "&#01055;", "&#129;", "&#8203;"};
    Random random;
    // A double quote cannot stand within a field, and nothing saved there holds one.
    const auto anyByte = [&random](std::string& text) {
        const char byte = static_cast<char>(random.below(256));
        text += byte == '"' ? '\'' : byte;
    };
    const auto bytes = [&] { return quoted(std::string(trim(random.text(pieces, anyByte)))); };
    constexpr int each = 500;
    for (int file = 0; file < 2; ++file) {
        std::string whole = test::projectFile({}, {});
        for (int topic = 0; topic < each; ++topic) {
            whole += lines(
                {"++", "1", "C", bytes(), "a.htm", "", "", bytes(), "Auto", bytes(), bytes()});
        }
        const ParsedProject read = test::parsed(whole);
        ASSERT_EQ(read.stop, LoadStop::none);
        EXPECT_TRUE(test::projectFile(read.outline, read.options) == whole);
    }
}

TEST(ProjectFormat, FormatTwoKeepsEveryCharacterOfEveryField) {
    constexpr TextView pieces[] = {"\"", "\"\"", ",",       "\r\n", "\r",
                                   "\n", " ",    "&#1055;", "++",   "\t"};
    Random random;
    const auto anyCharacter = [&random](std::string& text) {
        constexpr std::size_t planes[] = {0x80, 0x500, 0xD800, 0x110000};
        const auto character = static_cast<char32_t>(random.below(planes[random.below(4)]));
        appendUtf8(text, character >= 0xD800 && character < 0xE000 ? U'\u0416' : character);
    };
    TopicOutline outline;
    for (int i = 0; i < TopicOutline::maxTopics; ++i) {
        Topic topic = test::topic(1, "", "");
        topic.body = random.text(pieces, anyCharacter);
        for (Text Topic::*field : topicFields) {
            topic.*field = random.text(pieces, anyCharacter);
        }
        topic.status = topic.status.empty() ? "C" : topic.status;
        outline.append(topic);
    }
    const Text file = test::projectFile(outline, russian());
    const ParsedProject read = test::parsed(file);
    EXPECT_EQ(read.stop, LoadStop::none);
    EXPECT_TRUE(read.outline == outline);
    EXPECT_EQ(read.options, russian());
    EXPECT_TRUE(test::projectFile(read.outline, read.options) == file);
    for (const bool keepsAll : {false, true}) {
        ProjectOptions options;
        options.keepsEveryCharacter = keepsAll;
        EXPECT_EQ(parseProject(formatWhole(outline, options)).options, options);
    }
}

TEST(ProjectFormat, TheHeadTellsTheLanguageAndKeepsWhatItDoesNotKnow) {
    const Text fields =
        test::projectFile(test::flatOutline(2), {}).substr(projectFileHeader.size() + 2);
    const Text head = "HTML Topicsmith Format 2\r\n";
    const ParsedProject known =
        test::parsed(head + "Colour= Blau \xC3\x9F\r\n language = el-GR \r\nb=\r\n\r\n" + fields);
    EXPECT_EQ(known.stop, LoadStop::none);
    EXPECT_EQ(known.options.languageTag, "el-GR");
    EXPECT_FALSE(known.options.keepsEveryCharacter);
    EXPECT_EQ(test::projectFile(known.outline, known.options),
              head + "Language=el-GR\r\nColour= Blau \u00DF\r\nb=\r\n\r\n" + fields);

    // As other tools leave it: a byte order mark, other line ends, and damaged bytes.
    Text foreign = "\xEF\xBB\xBF" + head + "\r\n" + fields;
    std::erase(foreign, '\r');
    foreign.replace(foreign.find("Topic 1"), 5, "\xC3\xA9\xE9\xD0");
    const ParsedProject read = test::parsed(foreign);
    ASSERT_EQ(read.outline.count(), 2);
    EXPECT_EQ(read.outline.at(1).title, "\u00E9\uFFFD\uFFFD 1");
    EXPECT_TRUE(read.options.keepsEveryCharacter);
    EXPECT_EQ(formatFor(read.options), ProjectFormat::two);
    EXPECT_EQ(formatFor({}), ProjectFormat::one);
}

TEST(ProjectFormat, FormatTwoStopsWhereTheFileIsWrong) {
    const Text good = test::projectFile(test::flatOutline(2), russian());
    const Text head = good.substr(0, good.find("\r\n\r\n") + 4);
    const Text full = test::projectFile(test::flatOutline(TopicOutline::maxTopics), russian());
    const std::tuple<Text, LoadStop, int, int> cases[] = {
        {"HTML Topicsmith Format 3\r\n" + good, LoadStop::unknownFormat, 0, 1},
        {"HTML Topicsmith Format 2", LoadStop::endInOptions, 0, 1},
        {head.substr(0, head.size() - 6), LoadStop::endInOptions, 0, 2},
        {head.substr(0, head.size() - 2), LoadStop::endInOptions, 0, 3},
        {head.substr(0, head.size() - 2) + "what?\r\n\r\n", LoadStop::corrupted, 0, 3},
        {head + "name\r\n", LoadStop::endInOptions, 0, 4},
        {good.substr(0, good.size() - 20), LoadStop::unexpectedEnd, 1, 38},
        {good + "x\r\ny\r\n", LoadStop::corrupted, 2, 44},
        {good.substr(0, good.size() - 6) + "\"a \"\"cut\"\"", LoadStop::endInBody, 2, 43},
        {full + "++\r\n1\r\n", LoadStop::topicLimit, 500, 5522},
    };
    for (const auto& [file, stop, topics, line] : cases) {
        const ParsedProject read = test::parsed(file);
        EXPECT_EQ(read.stop, stop) << file.substr(0, 60);
        EXPECT_EQ(read.outline.count(), topics) << file.substr(0, 60);
        EXPECT_EQ(read.stopLine, line) << file.substr(0, 60);
    }
    EXPECT_EQ(test::parsed(good.substr(0, good.size() - 6) + "\"a \"\"cut\"\"").outline.at(2).body,
              "a \"cut\"");
}
