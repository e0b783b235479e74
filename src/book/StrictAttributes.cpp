#include "book/StrictAttributes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "book/StrictMarkup.h"
#include "book/StrictStyle.h"

namespace book {

using text::append;
using text::Text;
using text::TextView;

namespace {

template <typename Test>
bool holdsOnly(TextView value, Test test) {
    return !value.empty() && std::all_of(value.begin(), value.end(), test);
}

/// A whole number from 1 on, as it was meant; nothing for any other.
std::optional<int> number(TextView value) {
    constexpr int most = 10000;
    int result = 0;
    const auto end = std::from_chars(value.data(), value.data() + value.size(), result);
    const bool isOne = end.ec == std::errc() && result > 0 && result <= most;
    return isOne ? std::optional(result) : std::nullopt;
}

/// A length in pixels or percent, as style sheets write it; empty for any other.
Text length(TextView value) {
    const auto count = number(value);
    return count ? std::to_string(*count) + (value.ends_with('%') ? "%" : "px") : Text();
}

/// "#F00", "#FF0000" or a name; empty for what is neither.
Text colour(TextView value) {
    if (!value.starts_with('#')) {
        return holdsOnly(
                   value,
                   [](char c) { return text::isAsciiLetterOrDigit(c) && !text::isAsciiDigit(c); })
                   ? Text(value)
                   : Text();
    }
    const bool isNumber = holdsOnly(value.substr(1), [](char c) {
        return text::isAsciiDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    });
    return isNumber && (value.size() == 4 || value.size() == 7) ? Text(value) : Text();
}

/// The sizes 1 to 7, and steps from the usual 3, as they can be seen at any size of the page.
Text fontSize(TextView value) {
    constexpr std::array<TextView, 7> sizes = {"x-small", "small",    "medium", "large",
                                               "x-large", "xx-large", "300%"};
    constexpr int usual = 3;
    const bool isStep = value.starts_with('+') || value.starts_with('-');
    const int count = number(value.substr(isStep ? 1 : 0)).value_or(0);
    if (count == 0) {
        return {};
    }
    const int wanted = !isStep ? count : value[0] == '+' ? usual + count : usual - count;
    return Text(sizes.at(static_cast<std::size_t>(std::clamp(wanted, 1, 7) - 1)));
}

Text fontFamily(TextView value) {
    const bool isPlain = holdsOnly(value, [](char c) {
        return text::isAsciiLetterOrDigit(c) || c == ' ' || c == ',' || c == '-';
    });
    return isPlain && !text::isAsciiDigit(value[0]) && value[0] != '-'
                   && value.find(",,") == Text::npos
               ? Text(value)
               : Text();
}

bool isOneOf(TextView value, std::initializer_list<TextView> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// Collects the attributes of one tag.
class Attributes {
public:
    Attributes(const text::HtmlReader& tag, const MarkupElement& element,
               const StyleAddress& picture)
        : tag_(tag), element_(element), picture_(picture), style_(element.style) {}

    Text make() {
        addGeneral();
        addLooks();
        if (element_.kind == ElementKind::cell) {
            addNumber("colspan");
            addNumber("rowspan");
        }
        if (element_.tag == "ol") {
            addNumber("start");
            if (const TextView type = value("type"); isOneOf(type, {"1", "a", "A", "i", "I"})) {
                add("type", type);
            }
        }
        if (const TextView own = value("style"); !own.empty()) {
            addStyle(strictDeclarations(text::resolvedReferences(own), picture_));
        }
        if (!style_.empty()) {
            add("style", style_);
        }
        return std::move(out_);
    }

private:
    TextView value(TextView name) const { return text::trim(tag_.attribute(name).value_or("")); }

    void add(TextView name, TextView value) {
        append(out_, " ", name, "=\"", escapedAttribute(value), "\"");
    }

    void addNumber(TextView name) {
        constexpr int mostCells = 1000;
        if (const auto count = number(value(name)); count && *count <= mostCells) {
            add(name, std::to_string(*count));
        }
    }

    void addStyle(TextView declarations) {
        append(style_, style_.empty() || declarations.empty() ? "" : ";", declarations);
    }

    /// Nothing for an empty value.
    void addStyle(TextView property, TextView value) {
        if (!value.empty()) {
            addStyle(Text(property) + ":" + Text(value));
        }
    }

    void addGeneral() {
        const Text frame = element_.kind == ElementKind::table && number(value("border"))
                               ? "topicsmith-ruled"
                               : "";
        const Text own = text::resolvedReferences(value("class"));
        if (const Text both = own + (own.empty() || frame.empty() ? "" : " ") + frame;
            !both.empty()) {
            add("class", both);
        }
        if (const TextView title = value("title"); !title.empty()) {
            add("title", text::resolvedReferences(title));
        }
        const TextView language = value("lang");
        if (holdsOnly(language, [](char c) { return text::isAsciiLetterOrDigit(c) || c == '-'; })
            && language.size() > 1 && language.size() < 9 && !text::isAsciiDigit(language[0])
            && language.back() != '-') {
            add("lang", language);
            add("xml:lang", language);
        }
        if (const Text direction = text::lowerAscii(value("dir"));
            isOneOf(direction, {"ltr", "rtl"})) {
            add("dir", direction);
        }
    }

    void addLooks() {
        const Text side = text::lowerAscii(value("align"));
        if (element_.kind == ElementKind::table || element_.kind == ElementKind::picture) {
            addStyle("float", isOneOf(side, {"left", "right"}) ? side : "");
            addStyle("vertical-align", isOneOf(side, {"top", "middle", "bottom"}) ? side : "");
            if (side == "center" && element_.kind == ElementKind::table) {
                addStyle("margin-left:auto;margin-right:auto");
            }
        } else {
            addStyle("text-align",
                     isOneOf(side, {"left", "right", "center", "justify"}) ? side : "");
        }
        const Text height = text::lowerAscii(value("valign"));
        addStyle("vertical-align",
                 isOneOf(height, {"top", "middle", "bottom", "baseline"}) ? height : "");
        addStyle("background-color", colour(value("bgcolor")));
        if (element_.tag == "font") {
            addStyle("color", colour(value("color")));
            addStyle("font-size", fontSize(value("size")));
            addStyle("font-family", fontFamily(value("face")));
        }
        if (isOneOf(element_.strictTag, {"table", "td", "th", "hr", "img"})) {
            addStyle("width", length(value("width")));
        }
        if (element_.kind == ElementKind::picture) {
            addStyle("height", length(value("height")));
        }
        if (tag_.attribute("nowrap")) {
            addStyle("white-space:nowrap");
        }
        const Text mark = text::lowerAscii(value("type"));
        addStyle("list-style-type",
                 element_.strictTag == "ul" && isOneOf(mark, {"disc", "circle", "square"}) ? mark
                                                                                           : "");
        if (const Text clear = text::lowerAscii(value("clear")); element_.tag == "br") {
            addStyle("clear", clear == "all"                      ? "both"
                              : isOneOf(clear, {"left", "right"}) ? clear
                                                                  : Text());
        }
    }

    const text::HtmlReader& tag_;
    const MarkupElement& element_;
    const StyleAddress& picture_;
    Text style_;
    Text out_;
};

} // namespace

Text strictAttributes(const text::HtmlReader& tag, const MarkupElement& element,
                      const StyleAddress& picture) {
    return Attributes(tag, element, picture).make();
}

} // namespace book
