#include "editor/PictureFile.h"

#include <algorithm>

#include "editor/Escapes.h"
#include "editor/MarkUp.h"
#include "model/ProjectFolders.h"
#include "platform/Files.h"
#include "text/HtmlReader.h"

namespace editor {

using text::append;

namespace {

using std::string_view;

/// A number of so many bytes, the lowest first or last; 0 where the bytes end before.
std::uint32_t number(string_view bytes, std::size_t at, int count, bool lowestFirst) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        const auto place = at + static_cast<std::size_t>(lowestFirst ? count - 1 - i : i);
        const unsigned char byte =
            place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0;
        value = (value << 8U) | byte;
    }
    return value;
}

std::optional<PictureSize> sizeOf(std::uint32_t width, std::uint32_t height) {
    constexpr std::uint32_t most = 100000;
    if (width == 0 || height == 0 || width > most || height > most) {
        return {};
    }
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

/// The first part that says how large the picture is comes behind any number of others.
std::optional<PictureSize> jpegSize(string_view bytes) {
    for (std::size_t at = 2; at + 9 < bytes.size();) {
        const auto kind = number(bytes, at + 1, 1, false);
        const bool frame =
            kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (number(bytes, at, 1, false) != 0xFF) {
            return {};
        }
        if (frame) {
            return sizeOf(number(bytes, at + 7, 2, false), number(bytes, at + 5, 2, false));
        }
        at += kind == 0xFF ? 1 : 2 + number(bytes, at + 2, 2, false);
    }
    return {};
}

std::optional<PictureSize> webpSize(string_view bytes) {
    const string_view kind = bytes.substr(12, 4);
    constexpr std::uint32_t bits14 = 0x3FFF;
    if (kind == "VP8 ") {
        return sizeOf(number(bytes, 26, 2, true) & bits14, number(bytes, 28, 2, true) & bits14);
    }
    if (kind == "VP8L") {
        const std::uint32_t both = number(bytes, 21, 4, true);
        return sizeOf((both & bits14) + 1, ((both >> 14U) & bits14) + 1);
    }
    if (kind == "VP8X") {
        return sizeOf(number(bytes, 24, 3, true) + 1, number(bytes, 27, 3, true) + 1);
    }
    return {};
}

bool isSvg(string_view bytes) {
    constexpr std::size_t head = 2000;
    const string_view start = bytes.substr(0, head);
    const std::size_t first = start.find_first_not_of("\xEF\xBB\xBF \t\r\n");
    return first != string_view::npos && start[first] == '<'
           && start.find("<svg") != string_view::npos;
}

} // namespace

bool hasPictureName(const std::filesystem::path& file) {
    const Text ending = text::lowerAscii("*" + platform::utf8FromPath(file.extension()));
    return ending.size() > 2 && (Text(picturePatterns) + ";").find(ending + ";") != Text::npos;
}

Text pictureEnding(string_view bytes) {
    using namespace std::string_view_literals;
    constexpr std::pair<string_view, const char*> heads[] = {
        {"\x89PNG\r\n\x1A\n"sv, "png"}, {"GIF87a"sv, "gif"},   {"GIF89a"sv, "gif"},
        {"\xFF\xD8\xFF"sv, "jpg"},      {"\0\0\1\0"sv, "ico"},
    };
    for (const auto& [head, ending] : heads) {
        if (bytes.starts_with(head)) {
            return ending;
        }
    }
    const string_view kind = bytes.size() < 12 ? string_view() : bytes.substr(8, 4);
    if (bytes.starts_with("RIFF") && kind == "WEBP") {
        return "webp";
    }
    if (bytes.size() > 12 && bytes.substr(4, 4) == "ftyp" && (kind == "avif" || kind == "avis")) {
        return "avif";
    }
    constexpr std::size_t bmpHead = 26;
    if (bytes.starts_with("BM") && bytes.size() > bmpHead && number(bytes, 6, 4, true) == 0) {
        return "bmp";
    }
    return isSvg(bytes) ? "svg" : "";
}

std::optional<PictureSize> pictureSize(string_view bytes) {
    const Text ending = pictureEnding(bytes);
    if (ending == "png") {
        return sizeOf(number(bytes, 16, 4, false), number(bytes, 20, 4, false));
    }
    if (ending == "gif") {
        return sizeOf(number(bytes, 6, 2, true), number(bytes, 8, 2, true));
    }
    if (ending == "bmp") {
        const std::uint32_t height = number(bytes, 22, 4, true); // negative for one from above
        constexpr std::uint32_t sign = 0x80000000U;
        return sizeOf(number(bytes, 18, 4, true), height >= sign ? 0U - height : height);
    }
    if (ending == "jpg") {
        return jpegSize(bytes);
    }
    return ending == "webp" && bytes.size() > 30 ? webpSize(bytes) : std::nullopt;
}

std::string bytesOfDataAddress(TextView address) {
    const std::size_t comma = std::min(address.find(','), address.size());
    if (!address.substr(0, comma).ends_with(";base64") || comma == address.size()) {
        return {};
    }
    constexpr TextView digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char character : address.substr(comma + 1)) {
        const std::size_t digit = digits.find(character);
        if (digit == TextView::npos) {
            if (character == '=') {
                break;
            }
            continue;
        }
        bits = ((bits << 6U) | static_cast<unsigned>(digit)) & 0xFFFFU;
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>((bits >> static_cast<unsigned>(count)) & 0xFFU);
        }
    }
    return bytes;
}

Text goodPictureName(TextView name) {
    Text good;
    for (const char character : name) {
        const bool plain = static_cast<unsigned char>(character) > 0x7F
                           || std::isalnum(static_cast<unsigned char>(character)) != 0
                           || character == '_' || character == '.';
        if (plain) {
            good += character;
        } else if (!good.empty() && good.back() != '-') {
            good += '-';
        }
    }
    const std::size_t first = good.find_first_not_of(".-");
    const std::size_t last = good.find_last_not_of(".-");
    return first == Text::npos ? "picture" : good.substr(first, last + 1 - first);
}

Text pictureWords(TextView fileName) {
    Text words(fileName.substr(0, fileName.rfind('.')));
    std::replace_if(
        words.begin(), words.end(),
        [](char character) { return character == '-' || character == '_'; }, ' ');
    return Text(text::trim(words));
}

Passage insertPicture(Passage passage, TextView fileName, std::optional<PictureSize> size,
                      TextView alternative) {
    Text tag;
    append(tag, model::imageTagStart, fileName, "'");
    if (size) {
        append(tag, " width=", std::to_string(size->width),
               " height=", std::to_string(size->height));
    }
    tag += " alt='";
    const std::size_t words = tag.size();
    const std::size_t length = escapedValue(alternative).size();
    append(tag, escapedValue(alternative), "'>");
    passage = insert(std::move(passage), tag);
    return {std::move(passage.text), passage.start - tag.size() + words, length};
}

std::optional<Passage> behindPicture(Passage passage) {
    const std::size_t start = TextView(passage.text).substr(0, passage.start).rfind('<');
    if (start == TextView::npos) {
        return {};
    }
    const TextView tag = TextView(passage.text).substr(start);
    text::HtmlReader reader(tag);
    if (!reader.next() || !reader.opens("img")) {
        return {};
    }
    const auto words = reader.attribute("alt");
    if (!words || words->data() == nullptr) { // named without a value
        return {};
    }
    const std::size_t from = start + static_cast<std::size_t>(words->data() - tag.data());
    if (passage.start < from || passage.end() > from + words->size()) {
        return {};
    }
    const std::size_t behind = start + reader.end();
    return Passage{std::move(passage.text), behind};
}

} // namespace editor
