#include "workshop/Header.h"

#include <algorithm>

#include "text/Text.h"
#include "workshop/HelpProject.h"

namespace workshop {

namespace {

std::string_view takeWord(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(lineBlanks), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(lineBlanks));
    rest.remove_prefix(word.size());
    return word;
}

} // namespace

std::string HeaderReader::withoutComments(std::string_view line) {
    std::string plain;
    while (!line.empty()) {
        if (inComment_) {
            const std::size_t end = line.find("*/");
            inComment_ = end == std::string_view::npos;
            line.remove_prefix(inComment_ ? line.size() : end + 2);
        } else if (line.starts_with("//") || line.starts_with(";")) {
            break;
        } else if (line.starts_with("/*")) {
            inComment_ = true;
            line.remove_prefix(2);
        } else {
            plain += line.front();
            line.remove_prefix(1);
        }
    }
    return plain;
}

std::optional<HeaderLine> HeaderReader::take(std::string_view line) {
    std::string plain = withoutComments(line);
    if (const std::size_t sign = plain.find_first_not_of(lineBlanks);
        sign != std::string::npos && plain[sign] == '#') {
        plain.insert(sign + 1, " "); // "# define" is allowed, too
    }
    std::string_view rest = plain;
    if (takeWord(rest) != "#") {
        return {};
    }
    const std::string_view directive = takeWord(rest);
    if (text::equalIgnoringCase(directive, "include")) {
        const std::size_t start = rest.find_first_not_of(" \t\"<");
        const std::size_t end = rest.find_last_not_of(" \t\">");
        if (start == std::string_view::npos || end == std::string_view::npos || end < start) {
            return {};
        }
        return HeaderLine{{}, 0, std::string(rest.substr(start, end - start + 1))};
    }
    const std::string_view name = takeWord(rest);
    const std::size_t value = rest.find_first_not_of(" \t(");
    if (!text::equalIgnoringCase(directive, "define") || value == std::string_view::npos) {
        return {};
    }
    const auto number = readNumber(rest.substr(value));
    return number && !name.empty() ? std::optional(HeaderLine{std::string(name), *number, {}})
                                   : std::nullopt;
}

} // namespace workshop
