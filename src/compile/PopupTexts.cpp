#include "compile/PopupTexts.h"

#include <map>

#include "model/TextLines.h"

namespace compile {

std::string popupTexts(std::string_view bytes,
                       const std::vector<workshop::ContextNumber>& numbers) {
    constexpr std::string_view topic = ".topic";
    std::map<std::string, std::uint32_t, std::less<>> known;
    for (const workshop::ContextNumber& each : numbers) {
        known.emplace(each.name, each.number);
    }
    std::string texts;
    model::LineReader lines(bytes);
    for (std::string_view line; lines.next(line);) {
        if (model::startsWithIgnoringCase(line, ".comment")) {
            continue;
        }
        const bool isTopic = model::startsWithIgnoringCase(line, topic);
        const auto number =
            isTopic ? known.find(model::trim(line.substr(topic.size()))) : known.end();
        if (number != known.end()) {
            model::appendLine(texts, topic, " ", std::to_string(number->second));
        } else {
            model::appendLine(texts, line);
        }
    }
    return texts;
}

} // namespace compile
