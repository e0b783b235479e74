#include <algorithm>
#include <charconv>

#include "text/Text.h"
#include "workshop/HelpProject.h"

namespace workshop {

namespace {

/// Fields between commas that stand neither in quotes nor in brackets; without their quotes.
std::vector<std::string> fields(std::string_view text) {
    std::vector<std::string> found;
    bool inQuotes = false;
    bool inBrackets = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const char character = i < text.size() ? text[i] : ',';
        if (i == text.size() || (character == ',' && !inQuotes && !inBrackets)) {
            std::string_view field = text::trimmed(text.substr(start, i - start), lineBlanks);
            if (field.size() >= 2 && field.starts_with('"') && field.ends_with('"')) {
                field = field.substr(1, field.size() - 2);
            }
            found.emplace_back(field);
            start = i + 1;
        } else if (character == '"') {
            inQuotes = !inQuotes;
        } else if (!inQuotes && (character == '[' || character == ']')) {
            inBrackets = character == '[';
        }
    }
    return found;
}

/// Positions may be negative.
std::optional<std::uint32_t> readSigned(std::string_view text) {
    text = text::trimmed(text, lineBlanks);
    const bool isNegative = text.starts_with('-');
    const auto number = readNumber(text.substr(isNegative ? 1 : 0));
    return number && isNegative ? std::optional(0U - *number) : number;
}

std::optional<std::array<std::uint32_t, 4>> readRectangle(std::string_view text) {
    if (!text.starts_with('[') || !text.ends_with(']')) {
        return {};
    }
    const auto parts = fields(text.substr(1, text.size() - 2));
    std::array<std::uint32_t, 4> rectangle{};
    for (std::size_t i = 0; i < rectangle.size() && i < parts.size(); ++i) {
        rectangle[i] = readSigned(parts[i]).value_or(0);
    }
    return rectangle;
}

} // namespace

std::optional<std::uint32_t> readNumber(std::string_view text) {
    text = text::trimmed(text, lineBlanks);
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(isHexadecimal ? 2 : 0);
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, isHexadecimal ? 16 : 10);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<WindowType> readWindowType(std::string_view line) {
    const std::size_t equals = line.find('=');
    WindowType window;
    window.name = text::trimmed(line.substr(0, equals), lineBlanks);
    if (equals == std::string_view::npos || window.name.empty()) {
        return {};
    }
    auto given = fields(line.substr(equals + 1));
    constexpr std::size_t fieldCount = 20;
    given.resize(std::max(given.size(), fieldCount));
    std::size_t next = 0;
    for (std::string WindowType::*text :
         {&WindowType::caption, &WindowType::contents, &WindowType::index,
          &WindowType::defaultTopic, &WindowType::home, &WindowType::jump1File,
          &WindowType::jump1Text, &WindowType::jump2File, &WindowType::jump2Text}) {
        window.*text = given[next++];
    }
    window.properties = readNumber(given[next++]);
    window.paneWidth = readNumber(given[next++]);
    window.buttons = readNumber(given[next++]);
    window.rectangle = readRectangle(given[next++]);
    for (std::optional<std::uint32_t> WindowType::*number :
         {&WindowType::style, &WindowType::extendedStyle, &WindowType::show, &WindowType::closed,
          &WindowType::tab, &WindowType::tabPosition, &WindowType::notify}) {
        window.*number = readSigned(given[next++]);
    }
    return window;
}

} // namespace workshop
