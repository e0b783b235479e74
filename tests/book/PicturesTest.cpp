#include <gtest/gtest.h>
#include <zlib.h>

#include "book/Bitmap.h"
#include "book/StrictSvg.h"

namespace {

using std::string;
using namespace std::string_literals;

string little(std::uint32_t number, int size) {
    string bytes;
    for (; size > 0; --size, number >>= 8U) {
        bytes += static_cast<char>(number);
    }
    return bytes;
}

/// A bitmap; `behindHead` is masks or colours.
string bitmap(int width, int height, int bits, int packing, const string& behindHead,
              const string& rows, int head = 40) {
    const auto start = static_cast<std::uint32_t>(14 + 40 + behindHead.size());
    const auto unsign = [](int number) { return static_cast<std::uint32_t>(number); };
    return "BM" + little(0, 8) + little(start, 4) + little(unsign(head), 4)
           + little(unsign(width), 4) + little(unsign(height), 4) + little(1, 2)
           + little(unsign(bits), 2) + little(unsign(packing), 4) + little(0, 20) + behindHead
           + rows;
}

std::uint32_t big(const string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        number = number << 8U | static_cast<unsigned char>(bytes.at(i));
    }
    return number;
}

/// The head, the colours and the rows of a PNG file; empty for none.
string contentsOf(const string& bitmap) {
    const auto png = book::pngOfBitmap(bitmap);
    if (!png || !png->starts_with("\x89PNG\r\n\x1A\n")) {
        return {};
    }
    string contents;
    for (std::size_t at = 8; at < png->size(); at += big(*png, at) + 12) {
        const string chunk = png->substr(at + 4, big(*png, at) + 4);
        EXPECT_EQ(
            crc32(0, reinterpret_cast<const Bytef*>(chunk.data()), static_cast<uInt>(chunk.size())),
            big(*png, at + 4 + chunk.size()));
        string rows(10'000, '\0');
        uLongf size = rows.size();
        if (chunk.starts_with("IDAT")
            && uncompress(reinterpret_cast<Bytef*>(rows.data()), &size,
                          reinterpret_cast<const Bytef*>(chunk.data() + 4), chunk.size() - 4)
                   == Z_OK) {
            contents += rows.substr(0, size);
        } else {
            contents += chunk.substr(4);
        }
    }
    return contents;
}

string pngHead(int width, int height, char kind) {
    return "\0\0\0"s + static_cast<char>(width) + "\0\0\0"s + static_cast<char>(height) + "\x8"
           + kind + "\0\0\0"s;
}

const string colours4 = "\1\2\3\0\4\5\6\0"s + string(14 * 4, '\7');
const string png4 = "\3\2\1\6\5\4"s + string(14 * 3, '\7');
const string masks565 = little(0xF800, 4) + little(0x7E0, 4) + little(0x1F, 4);
const string masksOfAll =
    little(0xFF0000, 4) + little(0xFF00, 4) + little(0xFF, 4) + little(0xFF000000, 4);
const string runs = "\3\1\0\0\0\3\0\1\2\0\0\0\0\2\1\0\1\2\0\1"s; // the last row begins with a gap

const struct {
    string bitmap;
    string png;
} kinds[] = {
    {bitmap(1, 2, 24, 0, "", "\1\2\3\0\4\5\6\0"s), pngHead(1, 2, 2) + "\0\6\5\4\0\3\2\1"s},
    {bitmap(1, -2, 24, 0, "", "\1\2\3\0\4\5\6\0"s), pngHead(1, 2, 2) + "\0\3\2\1\0\6\5\4"s},
    {bitmap(3, 1, 4, 0, colours4, "\x10\x10\0\0"s), pngHead(3, 1, 3) + png4 + "\0\1\0\1"s},
    {bitmap(2, 1, 16, 3, masks565, "\0\xF8\xE0\7"s), pngHead(2, 1, 2) + "\0\xFF\0\0\0\xFF\0"s},
    {bitmap(1, 1, 32, 3, masksOfAll + string(52, '\0'), "\1\2\3\x80", 108),
     pngHead(1, 1, 6) + "\0\3\2\1\x80"s},
    {bitmap(1, 1, 32, 3, masksOfAll + string(52, '\0'), "\1\2\3\0"s, 108),
     pngHead(1, 1, 2) + "\0\3\2\1"s},
    {bitmap(3, 3, 4, 2, colours4, "\3\x10\0\0\0\3\x01\x10\0\0\0\2\1\0\1\x10\0\1"s),
     pngHead(3, 3, 3) + png4 + "\0\0\1\0\0\0\1\1\0\1\0\1"s},
    {bitmap(3, 3, 8, 1, colours4 + string(240 * 4, '\7'), runs),
     pngHead(3, 3, 3) + png4 + string(240 * 3, '\7') + "\0\0\2\0\0\0\1\2\0\1\1\1"s},
};

} // namespace

TEST(Bitmap, PointsAndColoursStay) {
    for (const auto& kind : kinds) {
        EXPECT_EQ(contentsOf(kind.bitmap), kind.png) << &kind - kinds;
    }
}

TEST(Bitmap, DamageIsNoPictureAndTakesNoMemory) {
    constexpr int most = 0x7FFFFFFF;
    for (const auto& [width, height] :
         {std::pair(0, 1), {1, 0}, {-1, 1}, {1, -most - 1}, {most, most}, {100'000, 100'000}}) {
        EXPECT_EQ(contentsOf(bitmap(width, height, 8, 1, colours4, runs)), "");
        EXPECT_EQ(contentsOf(bitmap(width, height, 24, 0, "", string(64, 'x'))), "");
    }
    EXPECT_EQ(contentsOf(bitmap(5000, 5000, 8, 1, colours4, runs)), "") << "so few runs";
    EXPECT_NE(contentsOf(bitmap(900, 900, 8, 1, colours4, "\0\1"s)), "") << "nothing is drawn";
    EXPECT_EQ(contentsOf(bitmap(3, -3, 8, 1, colours4, runs)), "") << "runs only go upwards";
    EXPECT_EQ(contentsOf(bitmap(1, 1, 0, 4, "", "\x89PNG")), "") << "another picture inside";
    EXPECT_EQ(contentsOf(bitmap(1, 1, 32, 3, little(5, 4) + little(2, 4) + little(8, 4), "1234")),
              "")
        << "a colour with a hole";
    for (const auto& kind : kinds) {
        for (std::size_t at = 0; at < kind.bitmap.size(); ++at) {
            book::pngOfBitmap(kind.bitmap.substr(0, at));
            for (const char byte : {'\0', '\x7F', '\xFF'}) {
                string damaged = kind.bitmap;
                damaged[at] = byte;
                book::pngOfBitmap(damaged);
            }
        }
    }
    EXPECT_EQ(contentsOf(kinds[0].bitmap.substr(0, kinds[0].bitmap.size() - 1)), "");
}

TEST(StrictSvg, DrawsWithoutScriptsAndOtherFiles) {
    constexpr const char* head = "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                                 "xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
    const auto drawn = [](const string& inside) {
        const string svg = book::strictSvg("\xEF\xBB\xBF<?xml version='1.0'?><!-- <svg> -->"
                                           "<!DOCTYPE svg PUBLIC '-//x' 'http://x.example/'>"
                                           "<svg version='1.1' onload='a()'>"
                                           + inside);
        return svg.starts_with(head) ? svg.substr(string(head).size()) : svg;
    };
    for (const auto& [inside, expected] : std::initializer_list<std::pair<string, string>>{
             {"<g><path D='M0 0'/><bla><g/><bla/></bla></g></svg><g/>",
              "><g><path d=\"M0 0\"></path></g></svg>"},
             {"<script>a()</script><svg:G onclick='a()' id='a "
              "b'><foreignObject><p>x</foreignObject>",
              "><g></g></svg>"},
             {"<image href='x.png'/><use xlink:href='http://x.example/#a'><g/></use>"
              "<use href='#a'/><image xlink:href='data:text/html,x'/>"
              "<image xlink:href='data:image/png;base64,AAAA'/>",
              "><use xlink:href=\"#a\"></use>"
              "<image xlink:href=\"data:image/png;base64,AAAA\"></image></svg>"},
             {"<g fill='URL( http://x.example/)' stroke=\"url('#s')\" "
              "style='fill:url(x.svg#a);stroke:red'/>",
              "><g stroke=\"url('#s')\" style=\"stroke:red\"></g></svg>"},
             {"<style><![CDATA[@import 'x'; a{fill:url(x)} b>c{fill:red}]]></style>",
              "><style>b&gt;c {fill:red}\n</style></svg>"},
             {"<a href='x'>1<text id=t>&lt;&eacute;<tspan id=t>2</text>3</a>",
              "><text id=\"t\">&lt;\u00E9<tspan>2</tspan></text></svg>"}}) {
        EXPECT_EQ(drawn(inside), expected) << inside;
    }
    EXPECT_EQ(book::strictSvg("<p>no drawing"), "");
    string deep;
    for (int i = 0; i < 100'000; ++i) {
        deep += "<g>";
    }
    EXPECT_LT(drawn(deep).size(), 2'000U) << "readers go in as deep as it is";
}
