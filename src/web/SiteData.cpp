#include "web/SiteData.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "text/HtmlReader.h"

namespace web {

using text::append;
using text::Text;
using text::TextView;

namespace {

/// Where the addresses in "site/contents.js" count from.
constexpr TextView pageFolder = "html/";

void appendContexts(Text& data, const std::map<Text, int>& contexts) {
    bool isFirst = true;
    for (const auto& [context, position] : contexts) {
        append(data, isFirst ? "\n" : ",\n", scriptText(context), ":", std::to_string(position));
        isFirst = false;
    }
}

/// A number without zeros in front, whether it stands there in tens or, behind "0x", in sixteens;
/// other texts as they are.
Text plainNumber(TextView number) {
    constexpr int tens = 10;
    constexpr int sixteens = 16;
    number = text::trim(number);
    const bool isHexadecimal = text::startsWithIgnoringCase(number, "0x");
    const TextView digits = number.substr(isHexadecimal ? 2 : 0);
    std::uint64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [rest, error] =
        std::from_chars(digits.data(), end, value, isHexadecimal ? sixteens : tens);
    return error == std::errc() && rest == end ? std::to_string(value) : text::lowerCase(number);
}

} // namespace

Text scriptText(TextView text) {
    constexpr TextView digits = "0123456789abcdef";
    Text value = "\"";
    const auto isPlain = [](char character) {
        return static_cast<unsigned char>(character) >= ' ' && character != '"'
               && character != '\\';
    };
    while (!text.empty()) {
        const auto end = std::find_if_not(text.begin(), text.end(), isPlain);
        const auto length = static_cast<std::size_t>(end - text.begin());
        value += text.substr(0, length);
        text.remove_prefix(length);
        if (text.empty()) {
            break;
        }
        const auto code = static_cast<unsigned char>(text.front());
        text.remove_prefix(1);
        if (code == '"' || code == '\\') {
            value += '\\';
            value += static_cast<char>(code);
        } else if (code == '\n') {
            value += "\\n";
        } else {
            append(value, "\\x", Text(1, digits[code >> 4U]), Text(1, digits[code & 0xFU]));
        }
    }
    return value += '"';
}

std::vector<Text> scriptTexts(TextView script) {
    constexpr int sixteens = 16;
    std::vector<Text> texts;
    for (std::size_t at = script.find('"'); at != TextView::npos; at = script.find('"', at)) {
        Text& value = texts.emplace_back();
        for (++at;;) {
            std::size_t end = std::min(at, script.size());
            while (end < script.size() && script[end] != '"' && script[end] != '\\') {
                ++end;
            }
            value += script.substr(at, end - at);
            at = end + 1;
            if (end == script.size() || script[end] == '"') {
                break;
            }
            const char escaped = at < script.size() ? script[at++] : '"';
            if (escaped == 'x') {
                const TextView digits = script.substr(std::min(at, script.size()), 2);
                unsigned char code = 0;
                std::from_chars(digits.data(), digits.data() + digits.size(), code, sixteens);
                value += static_cast<char>(code);
                at += digits.size();
            } else {
                value += escaped == 'n' ? '\n' : escaped;
            }
        }
    }
    return texts;
}

Text contentsData(const model::TopicOutline& outline, const SiteMap& map) {
    Text data = "topicsmith([";
    for (int position = 1; position <= map.count(); ++position) {
        const SitePage& page = map.at(position);
        append(data, position > 1 ? ",\n" : "\n", "[", std::to_string(outline.depth(position)), ",",
               scriptText(page.title));
        if (map.hasPage(position)) {
            append(data, ",", scriptText(TextView(page.address).substr(pageFolder.size())));
        }
        data += ']';
    }
    return data += "]);\n";
}

Text keywordsData(const std::vector<Keyword>& keywords) {
    Text data = "topicsmith([";
    bool isFirst = true;
    for (const Keyword& keyword : keywords) {
        append(data, isFirst ? "\n" : ",\n", "[", scriptText(keyword.text));
        for (const int position : keyword.topics) {
            append(data, ",", std::to_string(position));
        }
        data += ']';
        isFirst = false;
    }
    return data += "]);\n";
}

Text contextsData(const model::TopicOutline& outline, const SiteMap& map) {
    std::map<Text, int> numbers;
    std::map<Text, int> names;
    for (int position = 1; position <= map.count(); ++position) {
        const model::Topic& topic = outline.at(position);
        if (!map.hasPage(position)) {
            continue;
        }
        if (!topic.contextNumber.empty()) {
            numbers.emplace(plainNumber(topic.contextNumber), position);
        }
        if (!topic.contextId.empty()) {
            names.emplace(text::lowerCase(topic.contextId), position);
        }
    }
    Text data = "topicsmith([{";
    appendContexts(data, numbers);
    data += "},{";
    appendContexts(data, names);
    return data += "}]);\n";
}

} // namespace web
