#include "editor/PictureFile.h"

#include <gtest/gtest.h>

#include "editor/Marked.h"
#include "support/TestFiles.h"

using namespace editor;
using namespace std::string_literals;

TEST(PictureFile, KnowsPicturesByTheirBytes) {
    const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\1\2\0\0\0\3"s;
    const std::string jpg = "\xFF\xD8\xFF\xE0\0\4ab\xFF\xC0\0\x11\x08\0\7\1\0\3"s;
    const std::string webp = "RIFF....WEBPVP8X\x0A\0\0\0\0\0\0\0\x0F\0\0\x07\0\0.."s;
    struct Case {
        std::string bytes;
        const char* ending;
        std::optional<PictureSize> size;
    };
    const Case cases[] = {
        {png, "png", PictureSize{258, 3}},
        {jpg, "jpg", PictureSize{256, 7}},
        {webp, "webp", PictureSize{16, 8}},
        {"GIF89a\5\0\6\0"s, "gif", PictureSize{5, 6}},
        {test::bitmap(4, 3), "bmp", PictureSize{4, 3}},
        {"\xEF\xBB\xBF<?xml?>\n<svg width='5'/>", "svg", {}},
        {"<html><p>no", "", {}},
        {"BMerely text that is long enough", "", {}},
        {png.substr(0, 12), "png", {}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(pictureEnding(one.bytes), one.ending);
        EXPECT_EQ(pictureSize(one.bytes), one.size) << one.ending;
    }
    EXPECT_TRUE(hasPictureName("\u00E4.JPEG"));
    EXPECT_FALSE(hasPictureName("jpeg"));
    EXPECT_FALSE(hasPictureName("a.pn"));
}

TEST(PictureFile, GoesIntoTheTextWithSizeAndWordsToOvertype) {
    EXPECT_EQ(goodPictureName(" Gr\u00FC\u00DFe & (2) .x "), "Gr\u00FC\u00DFe-2-.x");
    EXPECT_EQ(goodPictureName("../#?"), "picture");
    EXPECT_EQ(pictureWords("main_window-2.png"), "main window 2");
    EXPECT_EQ(
        test::marked(insertPicture(test::at("\u00E4[x]y"), "a.png", PictureSize{4, 3}, "it's")),
        "\u00E4<img src='..\\images\\a.png' width=4 height=3 alt='[it&#39;s]'>y");
    for (const char* before : {"\u00E4<img alt='[a > b]' title='>'>y", "\u00E4<IMG alt=\"a|\">y",
                               "\u00E4<img src=a alt='|'>y"}) {
        const auto behind = behindPicture(test::at(before));
        EXPECT_TRUE(behind && test::marked(*behind).ends_with(">|y")) << before;
    }
    for (const char* elsewhere :
         {"<img alt='a'|>y", "<img alt=''>|y", "<img alt|>", "<img src='|' alt=''>", "<p alt='|'>",
          "<img alt='[a'>]y", "<img alt='|", "|"}) {
        EXPECT_FALSE(behindPicture(test::at(elsewhere))) << elsewhere;
    }
}
