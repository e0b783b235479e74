#include "text/CodePage.h"

#include <algorithm>
#include <charconv>
#include <utf8proc.h>

#include "platform/Unicode.h"
#include "text/CodePageTable.h"

namespace text {

namespace {

constexpr unsigned firstHigh = 0x80;

/// With what is no character replaced.
Text wellFormed(TextView bytes) {
    Text text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        appendUtf8(text, takeUtf8(bytes));
    }
    return text;
}

/// Whether an author sees more in the character than in its reference.
bool isVisible(char32_t character) {
    constexpr char32_t joiner = 0x200D; // joins pictures and letters of some scripts
    constexpr char32_t nonJoiner = 0x200C;
    if (character == joiner || character == nonJoiner) {
        return true;
    }
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_CN:
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_CS:
    case UTF8PROC_CATEGORY_CO:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
    case UTF8PROC_CATEGORY_ZS:
        return false;
    default:
        return true;
    }
}

/// A decimal reference just as encoded() writes one: nothing for every other.
struct DecimalReference {
    std::size_t length = 0;
    char32_t character = 0;
};

DecimalReference decimalReferenceAt(TextView html) {
    constexpr std::size_t mostDigits = 7;
    constexpr char32_t last = 0x10FFFF;
    if (!html.starts_with("&#") || html.size() < 4 || html[2] == '0') {
        return {};
    }
    unsigned number = 0;
    const char* first = html.data() + 2;
    const char* end = html.data() + std::min(html.size(), 2 + mostDigits);
    const auto [rest, error] = std::from_chars(first, end, number);
    if (error != std::errc() || rest == html.data() + html.size() || *rest != ';'
        || number > last) {
        return {};
    }
    return {static_cast<std::size_t>(rest - html.data()) + 1, number};
}

void appendReference(std::string& bytes, char32_t character) {
    bytes += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ';';
}

} // namespace

CodePage::CodePage(unsigned number) : table_(&CodePageTable::of(number)), number_(number) {}

bool CodePage::has(char32_t character) const {
    return character < firstHigh || number_ == platform::utf8CodePage
           || table_->bytesOf(character) != nullptr;
}

bool CodePage::hasAll(TextView text) const {
    while (!text.empty()) {
        if (!has(takeUtf8(text))) {
            return false;
        }
    }
    return true;
}

Text CodePage::decoded(TextView bytes) const {
    std::size_t plain = asciiLength(bytes);
    if (plain == bytes.size()) {
        return Text(bytes);
    }
    if (number_ == platform::utf8CodePage) {
        return wellFormed(bytes);
    }
    if (table_->isOfSingleBytes()) {
        return table_->decodedSingleBytes(bytes);
    }
    Text text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        text.append(bytes.data(), plain);
        bytes.remove_prefix(plain);
        while (!bytes.empty() && (bytes.front() & 0x80) != 0) {
            table_->appendDecoded(text, bytes);
        }
        plain = asciiLength(bytes);
    }
    return text;
}

void CodePage::appendEncoded(std::string& bytes, TextView text, Missing missing) const {
    if (number_ == platform::utf8CodePage) {
        bytes += text;
        return;
    }
    while (!text.empty()) {
        const std::size_t plain = asciiLength(text);
        bytes += text.substr(0, plain);
        text.remove_prefix(plain);
        while (!text.empty() && (text.front() & 0x80) != 0) {
            const char32_t character = takeUtf8(text);
            if (isLatin(character)) {
                bytes += static_cast<char>(character);
            } else if (const std::string* known = table_->bytesOf(character)) {
                bytes += *known;
            } else if (missing == Missing::reference) {
                appendReference(bytes, character);
            } else {
                bytes += '?';
            }
        }
    }
}

Bytes CodePage::encoded(TextView text, Missing missing) const {
    Bytes bytes;
    bytes.value.reserve(text.size());
    appendEncoded(bytes.value, text, missing);
    return bytes;
}

std::size_t CodePage::encodedSize(TextView text) const {
    std::size_t size = 0;
    for (std::size_t plain = asciiLength(text); plain < text.size(); plain = asciiLength(text)) {
        size += plain;
        text.remove_prefix(plain);
        TextView rest = text;
        if (isLatin(takeUtf8(rest))) {
            ++size;
        } else {
            const TextView letter = text.substr(0, text.size() - rest.size());
            size += encoded(letter, Missing::reference).value.size();
        }
        text = rest;
    }
    return size + text.size();
}

Text CodePage::withLetters(TextView html) const {
    Text text;
    text.reserve(html.size());
    for (std::size_t at = 0; at < html.size();) {
        const std::size_t sign = std::min(html.find("&#", at), html.size());
        text += html.substr(at, sign - at);
        at = sign;
        if (at == html.size()) {
            break;
        }
        const DecimalReference reference = decimalReferenceAt(html.substr(at));
        if (reference.length > 0 && !has(reference.character) && isVisible(reference.character)) {
            appendUtf8(text, reference.character);
            at += reference.length;
        } else {
            text += html[at++];
        }
    }
    return text;
}

Text CodePage::decodedHtml(TextView bytes) const {
    Text text = decoded(bytes);
    if (text.find("&#") == Text::npos) {
        return text; // without a copy
    }
    return withLetters(text);
}

} // namespace text
