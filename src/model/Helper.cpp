#include "model/Helper.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/CharacterReferences.h"

namespace model {

using text::CharacterReference;
using text::characterReferenceAt;
using text::isForeign;
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

Text withoutForeignReferences(TextView text) {
    Text result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool mayBegin = text.substr(i).starts_with("&#");
        const auto reference = mayBegin ? characterReferenceAt(text, i) : CharacterReference();
        if (isForeign(reference)) {
            i += reference.length - 1;
        } else {
            result += text[i];
        }
    }
    return result;
}

Text makeContextId(TextView title) {
    Text id = upperCase(makeFileName(title));
    std::replace(id.begin(), id.end(), ' ', '_');
    return "IDH_" + id;
}

void appendQuotedField(Text& file, TextView text) {
    const TextView trimmed = trim(text);
    const auto holds = [trimmed](char c) { return trimmed.find(c) != TextView::npos; };
    const bool holdsQuote = holds('"');
    if (!holdsQuote && !holds(',') && !holds('\r')) {
        file += trimmed;
        return;
    }
    file += '"';
    const std::size_t start = file.size();
    file += trimmed;
    if (holdsQuote) {
        std::replace(file.begin() + static_cast<std::ptrdiff_t>(start), file.end(), '"', '\'');
    }
    file += '"';
}

Text quoteField(TextView text) {
    Text field;
    appendQuotedField(field, text);
    return field;
}

Text asSaved(TextView text) {
    Text saved(trim(text));
    std::replace(saved.begin(), saved.end(), '"', '\'');
    return saved;
}

Text stripHighChars(TextView text) {
    Text result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char character) { return static_cast<unsigned char>(character) > 127; }, ' ');
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
