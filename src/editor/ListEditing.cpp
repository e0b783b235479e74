#include "editor/ListEditing.h"

#include <algorithm>

#include "editor/TagStructure.h"
#include "text/HtmlReader.h"

namespace editor {

using text::lineBreak;

namespace {

/// The name of the tag that begins at a "<", in small letters; with "/" before an end tag's.
Text tagName(TextView text, std::size_t start) {
    std::size_t end = start + 1;
    while (end < text.size()
           && (std::isalnum(static_cast<unsigned char>(text[end])) != 0
               || (text[end] == '/' && end == start + 1))) {
        ++end;
    }
    return text::lowerAscii(text.substr(start + 1, end - start - 1));
}

/// Whether a tag stands in the text of an item, as words do; named with "/" where it is an end tag.
bool isInItem(TextView name) {
    constexpr TextView others[] = {"br", "code", "img", "kbd", "p", "samp", "tt", "var"};
    name.remove_prefix(name.starts_with('/') ? 1 : 0);
    return text::isInlineTag(name)
           || std::find(std::begin(others), std::end(others), name) != std::end(others);
}

/// The tag of the item that the caret stands in, without a block between; npos for none.
std::size_t itemStart(TextView text, std::size_t caret) {
    for (std::size_t at = caret; at > 0;) {
        at = text.rfind('<', at - 1);
        if (at == TextView::npos) {
            break;
        }
        const Text name = tagName(text, at);
        if (name == "li") {
            return at;
        }
        if (!name.empty() && !isInItem(name)) {
            break;
        }
    }
    return TextView::npos;
}

/// Behind the end tag of the list in which the caret stands; npos when there is none.
std::size_t listEnd(TextView text, std::size_t caret) {
    int depth = 1;
    for (std::size_t at = text.find('<', caret); at != TextView::npos;
         at = text.find('<', at + 1)) {
        const Text name = tagName(text, at);
        depth += name == "ul" || name == "ol" ? 1 : 0;
        depth -= name == "/ul" || name == "/ol" ? 1 : 0;
        if (depth == 0) {
            const std::size_t end = text.find('>', at);
            return end == TextView::npos ? end : end + 1;
        }
    }
    return TextView::npos;
}

/// The next tag that does not stand in the text of an item, or the end.
std::size_t itemTextEnd(TextView text, std::size_t at) {
    for (at = text.find('<', at); at != TextView::npos; at = text.find('<', at + 1)) {
        if (const Text name = tagName(text, at); !name.empty() && !isInItem(name)) {
            return at;
        }
    }
    return text.size();
}

/// Behind the end tags right behind the caret, if they belong to what the caret stands in.
std::size_t behindEndTags(TextView text, std::size_t contents, std::size_t caret) {
    auto open = openTags(text.substr(contents, caret - contents)).size();
    for (; open > 0 && text.substr(caret).starts_with("</"); --open) {
        const std::size_t end = text.find('>', caret);
        if (end == TextView::npos || !isInItem(tagName(text, caret))) {
            break;
        }
        caret = end + 1;
    }
    return caret;
}

/// Two items where there was one: what goes around the caret ends in the first one and begins anew.
Passage splitItem(Passage passage, std::size_t contents) {
    const TextView text = passage.text;
    const std::size_t caret = behindEndTags(text, contents, passage.start);
    const std::size_t textEnd = itemTextEnd(text, caret);
    const Text rest = text::lowerAscii(text.substr(caret, textEnd - caret));
    Text ends;
    Text begins(lineBreak);
    begins += "<li>";
    for (const TextPart& tag : openTags(text.substr(contents, caret - contents))) {
        Text end("</");
        text::append(end, tagName(text, contents + tag.start), ">");
        if (rest.find(end) != Text::npos) {
            ends.insert(0, end);
            begins += text.substr(contents + tag.start, tag.length);
        }
    }
    ends += tagName(text, textEnd) == "/li" ? "</li>" : "";
    passage.text.insert(caret, ends + begins);
    return {std::move(passage.text), caret + ends.size() + begins.size()};
}

/// The list without an item that has no text; the caret goes behind the list.
Passage endList(Passage passage, std::size_t start, std::size_t end) {
    constexpr TextView closing = "</li>";
    Text& text = passage.text;
    if (text::startsWithIgnoringCase(TextView(text).substr(end), closing)) {
        end += closing.size();
    }
    const std::size_t before = text.find_last_not_of(" \t\r\n", start - 1);
    if (start > 0 && before != Text::npos) {
        start = before + 1;
    }
    text.erase(start, end - start);
    std::size_t caret = listEnd(text, start);
    if (caret == Text::npos) { // being written just now
        const Text element = elementToClose(text.substr(0, start) + Text(lineBreak));
        Text tag(lineBreak);
        text::append(tag, "</", element, ">");
        text.insert(start, tag);
        caret = start + tag.size();
    }
    text.insert(caret, lineBreak);
    return {std::move(text), caret + lineBreak.size()};
}

} // namespace

std::optional<Passage> nextItem(Passage passage) {
    const TextView text = passage.text;
    const std::size_t item = passage.length > 0 ? TextView::npos : itemStart(text, passage.start);
    const std::size_t contents =
        item == TextView::npos ? item : text.substr(0, passage.start).find('>', item);
    if (contents == TextView::npos) {
        return {};
    }
    const TextView before = text.substr(contents + 1, passage.start - contents - 1);
    const std::size_t next = std::min(text.find('<', passage.start), text.size());
    const TextView behind = text.substr(passage.start, next - passage.start);
    constexpr TextView blanks = " \t\r\n";
    if (before.find_first_not_of(blanks) == TextView::npos
        && behind.find_first_not_of(blanks) == TextView::npos) {
        const std::size_t end =
            passage.start + std::min(behind.find_first_of("\r\n"), behind.size());
        return endList(std::move(passage), item, end);
    }
    return splitItem(std::move(passage), contents + 1);
}

} // namespace editor
