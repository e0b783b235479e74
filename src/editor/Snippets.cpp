#include "editor/Snippets.h"

#include <algorithm>

#include "editor/MarkUp.h"
#include "platform/Files.h"
#include "text/TextLines.h"

namespace editor {

namespace {

constexpr std::uint64_t largest = std::uint64_t(16) << 20U;
constexpr TextView place = "{|}";

/// The name in a line that begins a snippet; a line of a text that looks like one has a backslash
/// in front.
bool isHead(TextView line) {
    return line.size() > 2 && line.starts_with('[') && line.ends_with(']');
}

TextView withoutMarks(TextView line) {
    return line.substr(std::min(line.find_first_not_of('\\'), line.size()));
}

} // namespace

std::error_code Snippets::read(std::vector<Snippet>& snippets) const {
    constexpr TextView mark = "\xEF\xBB\xBF";
    std::string bytes;
    const std::error_code error = platform::readFile(file_, bytes, largest);
    TextView file = bytes;
    file.remove_prefix(file.starts_with(mark) ? mark.size() : 0);
    text::LineReader lines(file);
    for (TextView line; lines.next(line);) {
        if (isHead(line)) {
            snippets.push_back({Text(line.substr(1, line.size() - 2)), {}});
        } else if (!snippets.empty()) {
            line.remove_prefix(line.starts_with('\\') && isHead(withoutMarks(line)) ? 1 : 0);
            text::appendLine(snippets.back().text, line);
        }
    }
    for (Snippet& snippet : snippets) {
        if (snippet.text.ends_with(text::lineBreak)) { // the last line's own
            snippet.text.resize(snippet.text.size() - text::lineBreak.size());
        }
    }
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

std::vector<Text> Snippets::names() const {
    std::vector<Snippet> snippets;
    static_cast<void>(read(snippets));
    std::vector<Text> names;
    names.reserve(snippets.size());
    for (Snippet& snippet : snippets) {
        names.push_back(std::move(snippet.name));
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::optional<Text> Snippets::text(TextView name) const {
    std::vector<Snippet> snippets;
    static_cast<void>(read(snippets));
    for (Snippet& snippet : snippets) {
        if (snippet.name == name) {
            return std::move(snippet.text);
        }
    }
    return {};
}

std::error_code Snippets::keep(TextView name, TextView text) {
    return change(name, text);
}

std::error_code Snippets::remove(TextView name) {
    return change(name, {});
}

std::error_code Snippets::change(TextView name, std::optional<TextView> text) {
    std::vector<Snippet> snippets;
    if (const std::error_code error = read(snippets)) {
        return error; // what cannot be read is not written over
    }
    Text key = text::oneLine(name);
    std::erase_if(snippets, [&key](const Snippet& snippet) { return snippet.name == key; });
    if (text) {
        snippets.push_back({std::move(key), Text(*text)});
    }
    Text file;
    for (const Snippet& snippet : snippets) {
        text::appendLine(file, "[", snippet.name, "]");
        text::LineReader lines(snippet.text);
        for (TextView line; lines.next(line);) {
            text::appendLine(file, isHead(withoutMarks(line)) ? "\\" : "", line);
        }
        if (snippet.text.ends_with('\n')) {
            text::appendLine(file);
        }
    }
    return platform::replaceFile(file_, file);
}

Passage insertSnippet(Passage passage, TextView snippet) {
    const std::size_t hole = snippet.find(place);
    if (hole == TextView::npos) {
        return insert(std::move(passage), snippet);
    }
    const Text selected = passage.text.substr(passage.start, passage.length);
    Text made(snippet);
    made.replace(hole, place.size(), selected);
    passage.text.replace(passage.start, passage.length, made);
    return {std::move(passage.text), passage.start + hole, selected.size()};
}

} // namespace editor
