#include "compile/PopupTexts.h"

#include <map>

#include "text/TextLines.h"

namespace compile {

std::string popupTexts(std::string_view bytes,
                       const std::vector<workshop::ContextNumber>& numbers) {
    constexpr std::string_view topic = ".topic";
    std::map<std::string, std::uint32_t, std::less<>> known;
    for (const workshop::ContextNumber& each : numbers) {
        known.emplace(each.name, each.number);
    }
    std::string texts;
    text::LineReader lines(bytes);
    for (std::string_view line; lines.next(line);) {
        if (text::startsWithIgnoringCase(line, ".comment")) {
            continue;
        }
        const bool isTopic = text::startsWithIgnoringCase(line, topic);
        const auto number =
            isTopic ? known.find(text::trim(line.substr(topic.size()))) : known.end();
        if (number != known.end()) {
            text::appendLine(texts, topic, " ", std::to_string(number->second));
        } else {
            text::appendLine(texts, line);
        }
    }
    return texts;
}

} // namespace compile
