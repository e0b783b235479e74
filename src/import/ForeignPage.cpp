#include "import/ForeignPage.h"

#include <algorithm>

#include "model/ProtectedBlock.h"
#include "text/CharacterReferences.h"
#include "text/CodePage.h"
#include "text/HtmlReader.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr TextView keywordClass = "clsid:1e2a7bd0-dab9-11d0-b93a-00c04fc99f9e";

/// Where the tag begins that a reader is at.
std::size_t startOf(const HtmlReader& reader) {
    return reader.offset() - (reader.closes() ? 2 : 1);
}

Text valueOf(const HtmlReader& reader, TextView attribute) {
    return Text(text::trimmed(reader.attribute(attribute).value_or(TextView())));
}

class PageReader {
public:
    explicit PageReader(const Text& html) : html_(html), reader_(html) {}

    ForeignPage read() {
        while (reader_.next()) {
            passHead();
            if (reader_.isText()) {
                page_.title += inTitle_ ? reader_.text() : TextView();
                continue;
            }
            const bool wasTitle = inTitle_;
            inTitle_ = !hasTitle_ && reader_.opens("title");
            hasTitle_ = hasTitle_ || wasTitle;
            takeTag();
        }
        page_.title = text::trimmed(text::oneLine(page_.title));
        takeBody();
        return std::move(page_);
    }

private:
    /// A page may go without the tags around its head and body.
    void passHead() {
        constexpr TextView tags[] = {"!doctype", "?xml", "html", "head",  "title",
                                     "meta",     "link", "base", "style", "script"};
        const Text name = reader_.lowerName();
        isInHead_ = isInHead_
                    && (reader_.isText()
                            ? inTitle_ || text::trimmed(reader_.text()).empty()
                            : std::find(std::begin(tags), std::end(tags), name) != std::end(tags));
        headEnd_ = isInHead_ ? reader_.end() : headEnd_;
    }

    void takeTag() {
        if (reader_.opens("link")) {
            const Text kind = text::lowerCase(valueOf(reader_, "rel"));
            const Text address = valueOf(reader_, "href");
            if (kind == "stylesheet" && !address.empty()) {
                page_.styleSheets.push_back(address);
            }
        } else if (reader_.opens("style") && bodyStart_ == Text::npos) {
            takeStyle(reader_.contents());
        } else if (reader_.opens("meta")) {
            takeMeta();
        } else if (reader_.opens("param")) {
            takeParameter();
        } else if (reader_.opens("object")) {
            object_ = text::equalIgnoringCase(valueOf(reader_, "classid"), keywordClass)
                          ? startOf(reader_)
                          : Text::npos;
            objectHasMore_ = false;
        } else if (reader_.closes("object") && object_ != Text::npos) {
            endObject();
        } else if (reader_.opens("body") && bodyStart_ == Text::npos) {
            bodyStart_ = reader_.end();
            page_.background = valueOf(reader_, "background");
        } else if (reader_.closes("head")) {
            headEnd_ = reader_.end();
        } else if (reader_.closes("body") || reader_.closes("html")) {
            bodyEnd_ = std::min(bodyEnd_, startOf(reader_));
        }
    }

    /// Older pages hide it from browsers that know no style.
    void takeStyle(TextView style) {
        constexpr TextView hidden = "<!--";
        constexpr TextView end = "-->";
        style = text::trimmed(style);
        style.remove_prefix(style.starts_with(hidden) ? hidden.size() : 0);
        style.remove_suffix(style.ends_with(end) ? end.size() : 0);
        if (style = text::trimmed(style); !style.empty()) {
            text::appendLine(page_.style, style);
        }
    }

    void takeMeta() {
        const Text name = text::lowerAscii(valueOf(reader_, "name"));
        if (name == "description" && page_.description.empty()) {
            const Text content = text::resolvedReferences(valueOf(reader_, "content"));
            page_.description = htmlFromText(plainText(text::escapedHtml(content)));
        }
        if (name != "ms-hkwd") {
            return;
        }
        const Text all = valueOf(reader_, "content");
        for (TextView rest = all; !rest.empty();) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            addKeyword(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    void takeParameter() {
        if (text::equalIgnoringCase(valueOf(reader_, "name"), "keyword")) {
            addKeyword(reader_.attribute("value").value_or(TextView()));
            cut(startOf(reader_), reader_.end());
        } else {
            objectHasMore_ = true;
        }
    }

    void addKeyword(TextView keyword) {
        if (keyword = text::trimmed(keyword); !keyword.empty()) {
            page_.keywords.push_back(text::oneLine(keyword));
        }
    }

    /// An object with other words than keywords stays with them.
    void endObject() {
        if (!objectHasMore_) {
            while (!cuts_.empty() && cuts_.back().first >= object_) {
                cuts_.pop_back();
            }
            cut(object_, reader_.end());
        }
        object_ = Text::npos;
    }

    void cut(std::size_t start, std::size_t end) { cuts_.emplace_back(start, end); }

    void takeBody() {
        std::size_t at = bodyStart_ != Text::npos ? bodyStart_ : headEnd_;
        const std::size_t end = std::max(std::min(bodyEnd_, html_.size()), at);
        Text body;
        for (const auto& [start, behind] : cuts_) {
            if (start >= at && behind <= end) {
                body += TextView(html_).substr(at, start - at);
                at = behind;
            }
        }
        body += TextView(html_).substr(at, end - at);
        page_.body = text::trimmed(body);
    }

    const Text& html_;
    HtmlReader reader_;
    ForeignPage page_;
    std::vector<std::pair<std::size_t, std::size_t>> cuts_; ///< in their order, apart
    bool isInHead_ = true;
    bool inTitle_ = false;
    bool hasTitle_ = false;
    bool objectHasMore_ = false;
    std::size_t object_ = Text::npos; ///< of keywords, that is open
    std::size_t headEnd_ = 0;
    std::size_t bodyStart_ = Text::npos;
    std::size_t bodyEnd_ = Text::npos;
};

/// Whether a heading is a title, perhaps with a number in front ("Chapter 1. Setup").
bool says(TextView heading, TextView title) {
    constexpr std::size_t longestNumber = 24;
    if (!heading.ends_with(title) || title.empty()) {
        return false;
    }
    const TextView number = heading.substr(0, heading.size() - title.size());
    return number.empty()
           || (number.size() <= longestNumber && number.ends_with(' ')
               && number.find_first_of("0123456789") != TextView::npos);
}

/// The items of lists that generation puts behind a topic's text, as far as they describe a page.
std::vector<ListedPage> listedBehind(TextView page) {
    constexpr TextView item = "<li><a href=\"";
    constexpr TextView linkEnd = "</a>";
    constexpr TextView dash = " - ";
    std::vector<ListedPage> listed;
    std::size_t at = page.rfind(model::blockEnd);
    while (at != TextView::npos && (at = page.find(item, at)) != TextView::npos) {
        at += item.size();
        const TextView address = page.substr(at, page.find('"', at) - at);
        at = page.find(linkEnd, at);
        if (at == TextView::npos) {
            break;
        }
        at = std::min(page.find_first_not_of("\r\n", at + linkEnd.size()), page.size());
        if (page.substr(at).starts_with(dash)) {
            const std::size_t start = at + dash.size();
            at = std::min(page.find_first_of("\r\n", start), page.size());
            listed.push_back({Text(address), Text(page.substr(start, at - start))});
        }
    }
    return listed;
}

} // namespace

ForeignPage readForeignPage(const Text& html, unsigned codePage) {
    ForeignPage page = PageReader(html).read();
    const text::CodePage letters(codePage);
    const Text ours = letters.withLetters(html);
    if (auto block = model::findProtectedBlock(ours, letters); block && !block->endUnknown) {
        page.isOurs = true;
        page.title = letters.withLetters(page.title);
        for (Text& keyword : page.keywords) {
            keyword = letters.withLetters(keyword);
        }
        page.listed = listedBehind(ours);
        const bool hasOwnLineEnds =
            letters.encodedSize(block->asIs) == static_cast<std::size_t>(block->generatedLength);
        page.body = block->content == model::placeholderBody ? Text()
                    : hasOwnLineEnds                         ? Text(block->asIs)
                                                             : std::move(block->content);
    }
    return page;
}

Text titleOfPage(TextView html) {
    HtmlReader reader(html);
    Text title;
    for (bool inside = false; reader.next();) {
        if (!reader.isText()) {
            if (reader.opens("body") || (inside && reader.closes("title"))) {
                break;
            }
            inside = reader.opens("title");
        } else if (inside) {
            title += reader.text();
        }
    }
    return plainText(title);
}

Text htmlFromText(TextView text) {
    Text html;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isReference = text[i] == '&' && text::characterReferenceAt(text, i).length > 0;
        html += text[i] == '<'   ? "&lt;"
                : text[i] == '"' ? "&quot;"
                : isReference    ? "&amp;"
                                 : TextView(text).substr(i, 1);
    }
    return html;
}

Text plainText(TextView html) {
    Text raw;
    HtmlReader reader(html);
    while (reader.next()) {
        raw += reader.isText() ? reader.text()
                               : TextView(text::isInlineTag(reader.lowerName()) ? "" : " ");
    }
    Text text;
    for (const char character : text::resolvedReferences(raw)) {
        if (text::whiteSpace.find(character) == TextView::npos) {
            text += character;
        } else if (!text.empty() && text.back() != ' ') {
            text += ' ';
        }
    }
    return Text(text::trimmed(text));
}

Text withoutTitleHeading(const Text& body, TextView title) {
    constexpr TextView permalink = "\u00B6"; // a sign that leads to the heading itself
    HtmlReader reader(body);
    std::size_t start = Text::npos;
    Text anchors;
    while (reader.next()) {
        if (reader.isText()) {
            if (start == Text::npos && !text::trimmed(reader.text()).empty()) {
                return body; // begins with something else
            }
            continue;
        }
        if (start == Text::npos && (reader.opens("img") || reader.opens("table"))) {
            return body;
        }
        const bool begins = start == Text::npos && text::headingLevel(reader.lowerName()) > 0;
        start = begins ? startOf(reader) : start;
        if (start == Text::npos) {
            continue;
        }
        for (const TextView name : {"id", "name"}) {
            if (const Text anchor = reader.closes() ? Text() : valueOf(reader, name);
                !anchor.empty()) {
                text::append(anchors, "<a name='", anchor, "'></a>");
            }
        }
        if (reader.closes() && text::headingLevel(reader.lowerName()) > 0) {
            break;
        }
    }
    if (start == Text::npos) {
        return body;
    }
    Text heading = plainText(TextView(body).substr(start, reader.end() - start));
    if (heading.ends_with(permalink)) {
        heading = plainText(heading.substr(0, heading.size() - permalink.size()));
    }
    return says(heading, title) ? body.substr(0, start) + anchors
                                      + Text(text::trimmed(TextView(body).substr(reader.end())))
                                : body;
}

Text withoutDoubleQuotes(TextView html) {
    constexpr TextView reference = "&quot;";
    Text result;
    std::size_t copied = 0;
    HtmlReader reader(html);
    while (reader.next()) {
        if (reader.isText()) {
            result += html.substr(copied, reader.offset() - copied);
            for (const char character : reader.text()) {
                character == '"' ? result += reference : result += character;
            }
            copied = reader.offset() + reader.text().size();
            continue;
        }
        for (const HtmlReader::Attribute& attribute : reader.attributes()) {
            if (!attribute.value || attribute.value->data() <= html.data()) {
                continue;
            }
            const auto start = static_cast<std::size_t>(attribute.value->data() - html.data());
            if (html[start - 1] != '"') {
                continue;
            }
            result += html.substr(copied, start - 1 - copied);
            result += '\'';
            for (const char character : *attribute.value) {
                character == '\'' ? result += "&#39;" : result += character;
            }
            result += '\'';
            copied = start + attribute.value->size() + 1;
        }
    }
    result += html.substr(copied);
    return result;
}

} // namespace importer
