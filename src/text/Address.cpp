#include "text/Address.h"

#include <algorithm>
#include <charconv>

namespace text {

namespace {

constexpr TextView slashes = "/\\";

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
    constexpr TextView plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/:-._~";
    constexpr TextView digits = "0123456789ABCDEF";
    const bool isOurs =
        path.starts_with('/'); // elsewhere a drive's letter or a machine comes first
    Text address = isOurs ? "file://" : path.starts_with("\\\\") ? "file:" : "file:///";
    for (const char byte : path) {
        const auto code = static_cast<unsigned char>(byte);
        if (plain.find(byte) != TextView::npos) {
            address += byte;
        } else if (byte == '\\' && !isOurs) {
            address += '/';
        } else {
            address += '%';
            address += digits[code >> 4U];
            address += digits[code & 15U];
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
    constexpr TextView plain = "-._~/!$()*,;@";
    constexpr TextView digits = "0123456789ABCDEF";
    constexpr unsigned digitBits = 4;
    constexpr unsigned lowBits = 0xF;
    const auto isPlain = [plain](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
               || plain.find(c) != TextView::npos;
    };
    Text address;
    for (const char character : path) {
        if (isPlain(character)) {
            address += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            address += '%';
            address += digits[byte >> digitBits];
            address += digits[byte & lowBits];
        }
    }
    return address;
}

} // namespace text
