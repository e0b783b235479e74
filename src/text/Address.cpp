#include "text/Address.h"

#include <algorithm>
#include <charconv>

namespace text {

namespace {

constexpr TextView slashes = "/\\";

/// Letters and digits of ASCII, and "-./_~".
bool isPlain(char byte) {
    const auto within = [byte](char first, char last) { return byte >= first && byte <= last; };
    return within('a', 'z') || within('A', 'Z') || within('-', '9') || byte == '_' || byte == '~';
}

void appendEscaped(Text& address, char byte) {
    constexpr TextView digits = "0123456789ABCDEF";
    if (isPlain(byte)) {
        address += byte;
    } else {
        const auto code = static_cast<unsigned char>(byte);
        address += '%';
        address += digits[code >> 4U];
        address += digits[code & 15U];
    }
}

} // namespace

Text plainPath(TextView path) {
    Text plain;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(slashes), path.size());
        const TextView part = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part == ".." && !plain.empty() && !plain.ends_with("/..")) {
            plain.erase(plain.rfind('/'));
        } else if (!part.empty() && part != ".") {
            append(plain, "/", part);
        }
    }
    return plain.substr(std::min<std::size_t>(1, plain.size()));
}

Text fileAddress(TextView path) {
    const bool isOurs =
        path.starts_with('/'); // elsewhere a drive's letter or a machine comes first
    Text address = isOurs ? "file://" : path.starts_with("\\\\") ? "file:" : "file:///";
    for (const char byte : path) {
        if (byte == ':' || (byte == '\\' && !isOurs)) {
            address += byte == ':' ? ':' : '/';
        } else {
            appendEscaped(address, byte);
        }
    }
    return address;
}

Text unescaped(TextView address) {
    Text result;
    for (std::size_t i = 0; i < address.size(); ++i) {
        unsigned code = 0;
        const char* digits = address.data() + i + 1;
        if (address[i] == '%' && i + 2 < address.size()
            && std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
            result += static_cast<char>(code);
            i += 2;
        } else {
            result += address[i];
        }
    }
    return result;
}

Text escapedAddress(TextView path) {
    Text address;
    address.reserve(path.size());
    for (const char byte : path) {
        appendEscaped(address, byte);
    }
    return address;
}

} // namespace text
