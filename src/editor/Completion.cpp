#include "editor/Completion.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace editor {

namespace {

constexpr TextView blanks = " \t\r\n";

constexpr TextView elements[] = {
    "a",     "abbr", "b",     "big",   "blockquote", "br",     "caption", "center", "code", "dd",
    "div",   "dl",   "dt",    "em",    "font",       "h1",     "h2",      "h3",     "h4",   "h5",
    "h6",    "hr",   "i",     "img",   "kbd",        "li",     "object",  "ol",     "p",    "param",
    "pre",   "s",    "samp",  "small", "span",       "strong", "style",   "sub",    "sup",  "table",
    "tbody", "td",   "tfoot", "th",    "thead",      "tr",     "tt",      "u",      "ul",   "var"};

struct Attributes {
    TextView element; ///< empty for all
    std::vector<TextView> names;
};

const std::vector<Attributes>& attributes() {
    static const std::vector<Attributes> all = {
        {"a", {"href='", "name='", "target='"}},
        {"img",
         {"align='", "alt='", "border='", "height='", "hspace='", "src='", "vspace='", "width='"}},
        {"table",
         {"align='", "bgcolor='", "border='", "cellpadding='", "cellspacing='", "frame='",
          "rules='", "width='"}},
        {"td", {"align='", "bgcolor='", "colspan='", "rowspan='", "valign='", "width='"}},
        {"th", {"align='", "bgcolor='", "colspan='", "rowspan='", "valign='", "width='"}},
        {"tr", {"align='", "bgcolor='", "valign='"}},
        {"ol", {"start='", "type='"}},
        {"ul", {"type='"}},
        {"font", {"color='", "face='", "size='"}},
        {"object", {"classid='", "codebase='", "data='", "type='"}},
        {"param", {"name='", "value='"}},
        {"", {"class='", "id='", "lang='", "style='", "title='"}}};
    return all;
}

/// The tag that is being written at the end of a text.
struct OpenTag {
    Text element;
    Text attribute;     ///< whose value is being written; empty for none
    Text typed;         ///< the beginning of a name or value
    bool named = false; ///< the element's name is complete
};

/// Nothing where the text does not end in a tag.
std::optional<OpenTag> openTag(TextView before) {
    const std::size_t start = before.rfind('<');
    if (start == TextView::npos) {
        return {};
    }
    const TextView tag = before.substr(start + 1);
    OpenTag open;
    std::size_t at = std::min(tag.find_first_of(" \t\r\n/>"), tag.size());
    open.element = text::lowerAscii(tag.substr(0, at));
    open.typed = open.element;
    if (at == tag.size()) {
        return open;
    }
    open.named = true;
    std::size_t nameStart = at;
    char quote = 0;
    for (; at < tag.size(); ++at) {
        const char character = tag[at];
        if (quote != 0) {
            if (character == quote) {
                quote = 0;
                open.attribute.clear();
                nameStart = at + 1;
            }
        } else if (character == '>') {
            return {};
        } else if ((character == '\'' || character == '"') && at > nameStart
                   && tag[at - 1] == '=') {
            quote = character;
            open.attribute = text::lowerAscii(tag.substr(nameStart, at - 1 - nameStart));
            nameStart = at + 1;
        } else if (blanks.find(character) != TextView::npos) {
            nameStart = at + 1;
        }
    }
    open.typed = tag.substr(std::min(nameStart, tag.size()));
    return open;
}

template <typename Names>
void addBeginningWith(std::vector<Text>& choices, TextView typed, const Names& names) {
    for (const TextView name : names) {
        if (text::startsWithIgnoringCase(name, text::lowerAscii(typed))) {
            choices.emplace_back(name);
        }
    }
}

/// Those with the typed letters in their last part come behind those that begin with them.
void addHolding(std::vector<Text>& choices, TextView typed, const std::vector<Text>& names) {
    constexpr std::size_t most = 200;
    const Text wanted = text::lowerCase(typed);
    std::vector<Text> later;
    for (const Text& name : names) {
        const Text lower = text::lowerCase(name);
        const std::size_t file = lower.find_last_of("\\/") + 1;
        if (lower.starts_with(wanted) || TextView(lower).substr(file).starts_with(wanted)) {
            choices.push_back(name);
        } else if (lower.find(wanted) != Text::npos) {
            later.push_back(name);
        }
    }
    choices.insert(choices.end(), later.begin(), later.end());
    choices.resize(std::min(choices.size(), most));
}

std::vector<Text> choicesFor(const OpenTag& tag, KnownNames& names) {
    std::vector<Text> choices;
    if (!tag.named) {
        addBeginningWith(choices, tag.typed, elements);
    } else if (tag.attribute.empty()) {
        for (const Attributes& known : attributes()) {
            if (known.element.empty() || known.element == tag.element) {
                addBeginningWith(choices, tag.typed, known.names);
            }
        }
    } else if (tag.attribute == "src") {
        addHolding(choices, tag.typed, names.pictures());
    } else if (tag.attribute == "href") {
        const std::size_t anchor = tag.typed.find('#');
        if (anchor == Text::npos) {
            addHolding(choices, tag.typed, names.pages());
        } else {
            const Text page = tag.typed.substr(0, anchor);
            std::vector<Text> places;
            for (const Text& name : names.anchors(page)) {
                places.push_back(page);
                text::append(places.back(), "#", name);
            }
            addHolding(choices, tag.typed, places);
        }
    }
    return choices;
}

} // namespace

Completion completionAt(TextView before, KnownNames& names, bool asked) {
    const auto tag = openTag(before);
    if (!tag || (!asked && tag->typed.empty() && tag->attribute.empty())) {
        return {};
    }
    Completion completion;
    completion.choices = choicesFor(*tag, names);
    completion.typed = static_cast<int>(text::characterCount(tag->typed));
    const auto& choices = completion.choices;
    if (std::find(choices.begin(), choices.end(), tag->typed) != choices.end()) {
        if (choices.size() == 1) {
            completion.choices.clear();
        }
        return completion; // what stands there may be what is meant
    }
    completion.sure = !tag->typed.empty() || asked;
    return completion;
}

std::vector<Text> anchorsIn(TextView body) {
    std::vector<Text> anchors;
    for (text::HtmlReader reader(body); reader.next();) {
        if (reader.isText() || reader.closes()) {
            continue;
        }
        for (const TextView attribute : {"id", "name"}) {
            const auto value = reader.attribute(attribute);
            const bool counts = attribute == "id" || reader.opens("a");
            if (value && counts && !value->empty()) {
                anchors.emplace_back(*value);
            }
        }
    }
    return anchors;
}

} // namespace editor
