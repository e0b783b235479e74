#include "book/WebAddress.h"

#include <algorithm>
#include <iterator>

namespace book {

using text::Text;
using text::TextView;

namespace {

bool isHexDigit(char character) {
    return text::isAsciiDigit(character) || (character >= 'a' && character <= 'f')
           || (character >= 'A' && character <= 'F');
}

/// "host" or "host:80".
bool isHost(TextView host) {
    const std::size_t colon = std::min(host.find(':'), host.size());
    const TextView name = host.substr(0, colon);
    const TextView port = host.substr(std::min(colon + 1, host.size()));
    constexpr std::size_t longestPort = 5;
    const bool isName = !name.empty() && name.front() != '-' && name.front() != '.'
                        && name.find("..") == TextView::npos
                        && std::all_of(name.begin(), name.end(), [](char c) {
                               return text::isAsciiLetterOrDigit(c) || c == '-' || c == '.';
                           });
    return isName && port.size() <= longestPort
           && std::all_of(port.begin(), port.end(), text::isAsciiDigit);
}

/// With "%" and digits for what may not stand in an address.
Text escapedAddress(TextView rest) {
    constexpr TextView digits = "0123456789ABCDEF";
    constexpr TextView plain = "-._~:/?@!$&'()*+,;=";
    Text escaped;
    bool hasFragment = false;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const char character = rest[i];
        const bool isEscape = character == '%' && i + 2 < rest.size() && isHexDigit(rest[i + 1])
                              && isHexDigit(rest[i + 2]);
        const bool isFragment = character == '#' && !hasFragment;
        hasFragment = hasFragment || isFragment;
        if (text::isAsciiLetterOrDigit(character) || plain.find(character) != TextView::npos
            || isEscape || isFragment) {
            escaped += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            escaped += '%';
            escaped += digits[byte >> 4U];
            escaped += digits[byte & 15U];
        }
    }
    return escaped;
}

} // namespace

std::optional<Text> webAddress(TextView address) {
    if (address.starts_with("//")) {
        return webAddress("https:" + Text(address));
    }
    const std::size_t colon = std::min(address.find(':'), address.size());
    const Text protocol = text::lowerAscii(address.substr(0, colon));
    const TextView rest = address.substr(std::min(colon + 1, address.size()));
    constexpr TextView others[] = {"mailto", "news", "tel"};
    if (std::find(std::begin(others), std::end(others), protocol) != std::end(others)) {
        return rest.empty() ? std::nullopt : std::optional(protocol + ":" + escapedAddress(rest));
    }
    const bool isWeb = protocol == "http" || protocol == "https" || protocol == "ftp";
    if (!isWeb || !rest.starts_with("//")) {
        return {};
    }
    const TextView place = rest.substr(2);
    const TextView host = place.substr(0, std::min(place.find_first_of("/?#\\"), place.size()));
    return isHost(host) ? std::optional(protocol + "://" + Text(host)
                                        + escapedAddress(place.substr(host.size())))
                        : std::nullopt;
}

} // namespace book
