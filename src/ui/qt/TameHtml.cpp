#include "ui/qt/TameHtml.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "text/HtmlReader.h"

namespace ui {

namespace {

using text::HtmlReader;

// The time for a table doubles with every one that it lies in; that for a tag grows with those
// that it lies in; that for a line with the square of its longest word.
constexpr int deepestTable = 6;
constexpr int deepestTag = 100;
constexpr std::size_t longestWord = 1000;

template <std::size_t size>
bool isOneOf(const std::string_view (&names)[size], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/// Tags that hold nothing, or end where the next one of their kind begins.
bool isFlat(std::string_view name) {
    constexpr std::string_view flat[] = {"area",  "base",  "br", "col",   "dd",   "dt", "hr",
                                         "img",   "input", "li", "link",  "meta", "p",  "td",
                                         "tbody", "tfoot", "th", "thead", "tr",   "wbr"};
    return isOneOf(flat, name);
}

bool isName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
               || c == '-' || c == '_' || c == ':';
    });
}

class Tamer {
public:
    explicit Tamer(std::string_view html) : reader_(html) { made_.reserve(html.size()); }

    std::string made() {
        while (reader_.next()) {
            if (reader_.isText()) {
                addText(reader_.text());
            } else if (const std::string name = reader_.lowerName();
                       isName(name) && name != "script") {
                if (!text::isInlineTag(name)) {
                    run_ = 0;
                }
                reader_.closes() ? close(name) : open(name);
            }
        }
        return std::move(made_);
    }

private:
    struct Count {
        int open = 0;
        int skipped = 0; ///< tags that were left out, whose ends are still to come
    };

    void open(const std::string& name) {
        Count& count = counts_[name];
        if (name == "a" && count.open > 0) {
            close(name); // as browsers do, for the many places that are never closed
        }
        if (!isFlat(name)) {
            if (depth_ >= deepestTag || (name == "table" && count.open >= deepestTable)) {
                ++count.skipped;
                return;
            }
            ++count.open;
            ++depth_;
        }
        addTag(name);
        addContents();
    }

    void close(const std::string& name) {
        Count& count = counts_[name];
        if (count.skipped > 0) {
            --count.skipped;
            return;
        }
        if (count.open > 0) {
            --count.open;
            --depth_;
        }
        made_ += "</" + name + '>';
    }

    void addTag(const std::string& name) {
        made_ += '<' + name;
        for (const HtmlReader::Attribute& attribute : reader_.attributes()) {
            if (isName(attribute.name)) {
                addAttribute(attribute);
            }
        }
        // Browsers take the kind of a style sheet for granted.
        const bool isSheet =
            name == "link" && !reader_.attribute("type")
            && text::lowerCase(reader_.attribute("rel").value_or("")).find("stylesheet")
                   != std::string::npos;
        made_ += isSheet ? " type=\"text/css\">" : ">";
    }

    void addAttribute(const HtmlReader::Attribute& attribute) {
        made_ += ' ';
        made_ += attribute.name;
        if (attribute.value) {
            made_ += "=\"";
            for (const char c : *attribute.value) {
                c == '"' ? made_ += "&quot;" : made_ += c;
            }
            made_ += '"';
        }
    }

    /// Style sheets stand in comments at times, for old browsers.
    void addContents() {
        std::string_view sheet = reader_.contents();
        for (std::size_t sign = 0; (sign = sheet.find('<')) != std::string_view::npos;) {
            made_ += sheet.substr(0, sign);
            sheet.remove_prefix(sign + (sheet.substr(sign).starts_with("<!--") ? 4 : 1));
        }
        made_ += sheet;
    }

    void addText(std::string_view text) {
        constexpr std::string_view breakable = "\u200B"; // shows nothing
        std::size_t reference = 0;                       // where one may have begun
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            reference = c == '&' ? i : reference;
            run_ = c == ' ' || c == '\n' || c == '\t' ? 0 : run_ + 1;
            const bool isBetween = (static_cast<unsigned char>(c) & 0xC0U) != 0x80U
                                   && (c == '&' || text[reference] != '&' || i - reference > 10);
            if (run_ > longestWord && isBetween) {
                made_ += breakable;
                run_ = 0;
            }
            switch (c) {
            case '<':
                made_ += "&lt;";
                break;
            case '\r': // the toolkit takes it for a blank
                break;
            default:
                made_ += c;
            }
        }
    }

    HtmlReader reader_;
    std::string made_;
    std::map<std::string, Count> counts_;
    int depth_ = 0;
    std::size_t run_ = 0; ///< how long the text cannot be broken by now
};

} // namespace

std::string tamed(std::string_view html) {
    constexpr std::size_t largest = std::size_t(4) << 20U;
    std::string page = Tamer(html.substr(0, largest)).made();
    if (html.size() > largest) {
        page += "<hr>The rest of this page is not shown.";
    }
    return page;
}

} // namespace ui
