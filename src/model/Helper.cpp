#include "model/Helper.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/CharacterReferences.h"

namespace model {

using text::CharacterReference;
using text::characterReferenceAt;
using text::Text;
using text::TextView;
using text::trim;
using text::upperCase;
namespace {

/// Removes quotes and replaces the other characters that file systems refuse. The character behind
/// a removed quote is taken over unseen, on purpose: a title's name must never change.
Text withoutFileSystemCharacters(TextView title) {
    Text name;
    name.reserve(title.size());
    for (std::size_t i = 0; i < title.size(); ++i) {
        switch (title[i]) {
        case '"':
        case '\'':
            if (i + 1 < title.size()) {
                name += title[++i];
            }
            break;
        case '/':
        case '\\':
            name += '-';
            break;
        case ':':
        case '|':
        case '*':
        case '?':
            name += ' ';
            break;
        default:
            name += title[i];
        }
    }
    return name;
}

Text withSingleBlanks(TextView text) {
    Text result;
    result.reserve(text.size());
    std::unique_copy(text.begin(), text.end(), std::back_inserter(result),
                     [](char a, char b) { return a == ' ' && b == ' '; });
    return result;
}

} // namespace

Text makeFileName(TextView title) {
    const Text name = withoutFileSystemCharacters(trim(title));
    const TextView trimmed = trim(name);
    return trimmed.empty() ? Text("Filename") : withSingleBlanks(trimmed);
}

Text withoutForeignLetters(TextView text, const text::CodePage& codePage) {
    Text result;
    while (!text.empty()) {
        const TextView before = text;
        if (codePage.has(text::takeUtf8(text))) {
            result += before.substr(0, before.size() - text.size());
        }
    }
    return result;
}

Text withoutForeignReferences(TextView text, const text::CodePage& codePage) {
    Text result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool mayBegin = text.substr(i).starts_with("&#");
        const auto reference = mayBegin ? characterReferenceAt(text, i) : CharacterReference();
        if (reference.length > 0 && reference.character != text::unknownCharacter
            && !codePage.has(reference.character)) {
            i += reference.length - 1;
        } else {
            result += text[i];
        }
    }
    return result;
}

Text makeContextId(TextView title, const text::CodePage& codePage) {
    Text id = upperCase(makeFileName(withoutForeignLetters(title, codePage)));
    std::replace(id.begin(), id.end(), ' ', '_');
    return "IDH_" + id;
}

void appendQuotedField(std::string& file, TextView text, const text::CodePage& codePage) {
    const TextView trimmed = trim(text);
    const auto holds = [trimmed](char c) { return trimmed.find(c) != TextView::npos; };
    const bool holdsQuote = holds('"');
    const bool isQuoted = holdsQuote || holds(',') || holds('\r');
    file += isQuoted ? "\"" : "";
    const std::size_t start = file.size();
    codePage.appendEncoded(file, trimmed, text::Missing::reference);
    if (holdsQuote) {
        std::replace(file.begin() + static_cast<std::ptrdiff_t>(start), file.end(), '"', '\'');
    }
    file += isQuoted ? "\"" : "";
}

Text asSaved(TextView text) {
    Text saved(trim(text));
    std::replace(saved.begin(), saved.end(), '"', '\'');
    return saved;
}

Text stripHighChars(TextView text) {
    constexpr char32_t lastPlain = 127;
    const text::CodePage western;
    Text result;
    while (!text.empty()) {
        const TextView before = text;
        const char32_t character = text::takeUtf8(text);
        if (character > lastPlain && western.has(character)) {
            result += ' ';
        } else {
            result += before.substr(0, before.size() - text.size());
        }
    }
    return Text(trim(result));
}

bool isAllLetters(TextView text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    });
}

bool fileExists(const std::filesystem::path& path) {
    return platform::isFile(path);
}

} // namespace model
