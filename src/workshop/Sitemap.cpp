#include "workshop/Sitemap.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>

#include "platform/Unicode.h"
#include "text/CharacterReferences.h"
#include "text/CodePage.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"
#include "workshop/LineCounter.h"

namespace workshop {

namespace {

using text::equalIgnoringCase;

// What a damaged or hostile file must not go beyond.
constexpr int deepest = 30;
constexpr std::size_t mostEntries = 500000;
constexpr std::size_t longestText = 1024;    // in bytes, references resolved
constexpr std::size_t mostParameters = 1000; // of one object

constexpr std::string_view replacementCharacter = "\uFFFD";

/// References put in their places. Those for bytes of another code page become its characters,
/// where the byte alone is one.
std::string resolved(std::string_view text, unsigned codePage) {
    if (codePage == plainReferences) {
        return text::resolvedReferences(text);
    }
    std::string result;
    while (!text.empty()) {
        const text::CharacterReference reference =
            text.front() == '&' ? text::characterReferenceAt(text, 0) : text::CharacterReference();
        const char32_t character = reference.character;
        if (reference.length == 0 || character == text::unknownCharacter) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        if (character >= 0xA0 && character <= 0xFF) {
            const char byte = static_cast<char>(character);
            const std::string letter = text::CodePage(codePage).decoded({&byte, 1});
            if (letter.find(replacementCharacter) == std::string::npos) {
                result += letter;
            } else {
                text::appendUtf8(result, character);
            }
        } else {
            text::appendUtf8(result, character);
        }
        text.remove_prefix(reference.length);
    }
    return result;
}

class SitemapReader {
public:
    SitemapReader(std::string_view utf8, unsigned codePage)
        : html_(utf8), codePage_(codePage), reader_(utf8), lines_(utf8) {}

    Sitemap read() {
        while (reader_.next() && sitemap_.entries.size() < mostEntries) {
            if (!reader_.isText()) {
                takeTag();
            }
        }
        sitemap_.isCut = sitemap_.entries.size() == mostEntries;
        endObject(false);
        return std::move(sitemap_);
    }

private:
    enum class Object { none, entry, properties };

    bool opensList() const {
        return reader_.opens("ul") || reader_.opens("ol") || reader_.opens("dir");
    }
    bool closesList() const {
        return reader_.closes("ul") || reader_.closes("ol") || reader_.closes("dir");
    }

    void takeTag() {
        if (opensList()) {
            endObject(false);
            depth_ = std::min(depth_ + (outermostClosed_ ? 0 : 1), deepest);
            outermostClosed_ = false;
        } else if (closesList()) {
            endObject(false);
            outermostClosed_ = depth_ <= 1;
            depth_ = std::max(depth_ - 1, 1);
        } else if (reader_.opens("object")) {
            endObject(false);
            beginObject();
        } else if (reader_.closes("object")) {
            endObject(true);
        } else if (reader_.opens("li")) {
            endObject(false);
        } else if (reader_.opens("param") && object_ != Object::none) {
            takeParameter();
        }
    }

    void beginObject() {
        const std::string_view type = reader_.attribute("type").value_or("");
        if (equalIgnoringCase(type, "text/sitemap")) {
            object_ = Object::entry;
            sitemap_.isStrict = sitemap_.isStrict && type == "text/sitemap" && isQuoted(type);
        } else if (equalIgnoringCase(type, "text/site properties")) {
            object_ = Object::properties;
        }
        entry_ = {std::max(depth_, 1), {}};
        entry_.line = lines_.at(reader_.offset());
        targetTitle_.clear();
        lastIsRemote_ = false;
    }

    void endObject(bool isClosed) {
        sitemap_.isStrict = sitemap_.isStrict && (isClosed || object_ == Object::none);
        if (object_ == Object::entry) {
            outermostClosed_ = false;
            if (!entry_.name.empty() || !entry_.merge.empty()) {
                sitemap_.entries.push_back(std::move(entry_));
            }
        }
        object_ = Object::none;
    }

    /// Where a value stands; npos for that of an attribute without one, which stands nowhere.
    std::size_t offsetOf(std::string_view value) const {
        const std::less_equal<const char*> isNotBehind;
        const bool isInside = isNotBehind(html_.data(), value.data())
                              && isNotBehind(value.data(), html_.data() + html_.size());
        return isInside ? static_cast<std::size_t>(value.data() - html_.data())
                        : std::string_view::npos;
    }

    bool isQuoted(std::string_view value) const {
        const std::size_t start = offsetOf(value);
        return start != std::string_view::npos && start + value.size() < html_.size()
               && html_[start + value.size()] == '"';
    }

    /// With the quotes that stand in it.
    std::string_view whole(std::string_view value) const {
        const std::size_t start = offsetOf(value);
        if (start == std::string_view::npos) {
            return value;
        }
        const std::size_t end = std::min(html_.find('>', start + value.size()), html_.size());
        const std::string_view rest =
            html_.substr(start + value.size(), end - start - value.size());
        const std::size_t last = rest.rfind('"');
        const bool goesOn = rest.starts_with('"') && last > 0 && last != std::string_view::npos
                            && rest.find('=') == std::string_view::npos;
        return goesOn ? html_.substr(start, value.size() + last) : value;
    }

    void takeParameter() {
        const auto name = reader_.attribute("name");
        const auto value = reader_.attribute("value");
        if (!name || !value) {
            sitemap_.isStrict = false;
            return;
        }
        const std::string_view all = whole(*value);
        sitemap_.isStrict =
            sitemap_.isStrict && isQuoted(*name) && isQuoted(*value) && all == *value;
        const std::string full = resolved(all, codePage_);
        const std::string text(text::wholeCharacters(full, longestText));
        if (object_ == Object::entry) {
            takeOfEntry(*name, text);
        } else if (sitemap_.properties.size() < mostParameters) {
            sitemap_.properties.emplace_back(*name, text);
        }
    }

    void takeOfEntry(std::string_view name, const std::string& text) {
        const auto is = [name](std::string_view known) { return equalIgnoringCase(name, known); };
        if (is("name") || is("keyword")) {
            // The first is the entry's own, each further one that of the target that follows.
            (entry_.name.empty() ? entry_.name : targetTitle_) = text;
        } else if (is("local")) {
            takePage(text, false);
        } else if (is("url")) {
            takePage(text, true);
        } else if (is("see also")) {
            entry_.seeAlso = text;
        } else if (is("merge")) {
            entry_.merge = text;
        } else if (is("new")) {
            entry_.isNew = text != "0";
        } else if (is("framename") && !entry_.targets.empty()) {
            entry_.targets.back().frame = text;
        } else if (is("windowname") && !entry_.targets.empty()) {
            entry_.targets.back().window = text;
        } else if (entry_.others.size() < mostParameters) {
            entry_.others.emplace_back(name, text);
        }
    }

    /// An address elsewhere only counts where there is no page.
    void takePage(const std::string& page, bool isRemote) {
        const bool goesOn = targetTitle_.empty() && !entry_.targets.empty();
        if (goesOn && isRemote && !lastIsRemote_) {
            return;
        }
        if (goesOn && !isRemote && lastIsRemote_) {
            entry_.targets.back().page = page;
        } else if (entry_.targets.size() < mostParameters * 100) {
            entry_.targets.push_back({targetTitle_.empty() ? entry_.name : targetTitle_, page});
            entry_.targets.back().line = lines_.at(reader_.offset());
        }
        lastIsRemote_ = isRemote;
        targetTitle_.clear();
    }

    std::string_view html_;
    unsigned codePage_;
    text::HtmlReader reader_;
    LineCounter lines_;
    Sitemap sitemap_;
    SitemapEntry entry_;
    std::string targetTitle_;
    Object object_ = Object::none;
    bool lastIsRemote_ = false;
    int depth_ = 0;
    bool outermostClosed_ = false; // until something follows
};

void appendParameter(std::string& file, std::string_view name, std::string_view value) {
    text::appendLine(file, "<param name=\"", name, "\" value=\"", text::escapedHtml(value), "\">");
}

bool isRemote(std::string_view page) {
    return page.find("://") != std::string_view::npos;
}

void appendTarget(std::string& file, const SitemapTarget& target) {
    appendParameter(file, isRemote(target.page) ? "URL" : "Local", target.page);
    if (!target.frame.empty()) {
        appendParameter(file, "FrameName", target.frame);
    }
    if (!target.window.empty()) {
        appendParameter(file, "WindowName", target.window);
    }
}

void appendEntry(std::string& file, const SitemapEntry& entry) {
    text::appendLine(file, "<LI><OBJECT type=\"text/sitemap\">");
    if (!entry.name.empty()) {
        appendParameter(file, "Name", entry.name);
    }
    for (std::size_t i = 0; i < entry.targets.size(); ++i) {
        // The first title would be taken for the entry's name.
        if (entry.targets.size() > 1 || entry.targets[i].title != entry.name) {
            appendParameter(file, "Name", entry.targets[i].title);
        }
        appendTarget(file, entry.targets[i]);
    }
    for (const auto& [name, value] :
         {Parameter{"See Also", entry.seeAlso}, Parameter{"Merge", entry.merge},
          Parameter{"New", entry.isNew ? "1" : ""}}) {
        if (!value.empty()) {
            appendParameter(file, name, value);
        }
    }
    for (const auto& [name, value] : entry.others) {
        appendParameter(file, name, value);
    }
    text::appendLine(file, "</OBJECT>");
}

/// A keyword behind the one above it. Nested long ones would take memory without end, so one that
/// became too long stands alone.
std::string joined(const std::string& above, const std::string& keyword) {
    constexpr std::string_view divider = ", ";
    constexpr std::size_t longest = 1000;
    const bool fits = above.size() + divider.size() + keyword.size() <= longest;
    return above.empty() || !fits ? keyword : above + std::string(divider) + keyword;
}

} // namespace

Sitemap readSitemap(std::string_view utf8, unsigned referenceCodePage) {
    return SitemapReader(utf8, referenceCodePage).read();
}

std::vector<KeywordTarget> keywordsOf(const std::vector<SitemapEntry>& index) {
    std::vector<KeywordTarget> keywords;
    std::vector<std::string> above; // keywords of the entries that this one lies in
    for (const SitemapEntry& entry : index) {
        const auto depth = static_cast<std::size_t>(entry.depth);
        above.resize(depth);
        above[depth - 1] = joined(depth > 1 ? above[depth - 2] : std::string(), entry.name);
        for (const SitemapTarget& target : entry.targets) {
            keywords.emplace_back(above[depth - 1], target);
        }
    }
    return keywords;
}

int pictureOf(const SitemapEntry& entry) {
    const auto number =
        std::find_if(entry.others.begin(), entry.others.end(), [](const Parameter& parameter) {
            return equalIgnoringCase(parameter.first, "imagenumber");
        });
    int picture = 0;
    if (number != entry.others.end()) {
        const std::string& digits = number->second;
        std::from_chars(digits.data(), digits.data() + digits.size(), picture);
    }
    return picture;
}

std::string formatSitemap(const Sitemap& sitemap) {
    std::string file;
    text::appendLine(file, "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">");
    text::appendLine(file, "<HTML><HEAD><!-- Sitemap 1.0 --></HEAD><BODY>");
    if (!sitemap.properties.empty()) {
        text::appendLine(file, "<OBJECT type=\"text/site properties\">");
        for (const auto& [name, value] : sitemap.properties) {
            appendParameter(file, name, value);
        }
        text::appendLine(file, "</OBJECT>");
    }
    int depth = 0;
    for (const SitemapEntry& entry : sitemap.entries) {
        for (; depth < entry.depth; ++depth) {
            text::appendLine(file, "<UL>");
        }
        for (; depth > entry.depth; --depth) {
            text::appendLine(file, "</UL>");
        }
        appendEntry(file, entry);
    }
    for (; depth > 0; --depth) {
        text::appendLine(file, "</UL>");
    }
    text::appendLine(file, "</BODY></HTML>");
    return file;
}

} // namespace workshop
