#include "compile/FileAddress.h"

#include <algorithm>

#include "text/Text.h"

namespace compile {

bool startsAtMachine(std::string_view path) {
    constexpr std::string_view slashes = "/\\";
    return path.size() > 1 && slashes.find(path[0]) != std::string_view::npos
           && slashes.find(path[1]) != std::string_view::npos;
}

Address splitAddress(std::string_view address) {
    constexpr std::size_t drive = 1;
    Address parts;
    const std::size_t colon = address.find(':');
    const bool hasProtocol =
        colon != std::string_view::npos && colon > 0 && address.find_first_of("/\\#?") > colon;
    parts.isElsewhere = (hasProtocol && colon != drive) || startsAtMachine(address)
                        || address.find("::") != std::string_view::npos;
    const std::size_t sharp = address.find('#');
    if (sharp != std::string_view::npos) {
        parts.fragment = address.substr(sharp + 1);
    }
    parts.path = address.substr(0, std::min(sharp, address.find('?')));
    return parts;
}

std::string caseKey(std::string_view utf8) {
    return text::lowerCase(utf8);
}

} // namespace compile
