#include "import/AddressRewriter.h"

#include <algorithm>

#include "import/ForeignPage.h"
#include "import/HelpSource.h"
#include "text/Address.h"
#include "text/HtmlReader.h"
#include "workshop/PageFacts.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

/// For places where blanks and other signs end an address.
Text escaped(Text address) {
    std::replace(address.begin(), address.end(), '\\', '/');
    return text::escapedAddress(address);
}

class Rewriter {
public:
    Rewriter(TextView html, const NewAddress& newAddress)
        : html_(html), newAddress_(newAddress), reader_(html) {}

    Text run() {
        while (reader_.next()) {
            if (reader_.isText() || reader_.closes()) {
                continue;
            }
            const Text tag = reader_.lowerName();
            if (tag == "style") {
                takeSheet(reader_.contents());
            }
            for (const HtmlReader::Attribute& attribute : reader_.attributes()) {
                if (attribute.value && !attribute.value->empty()) {
                    take(tag, text::lowerAscii(attribute.name), *attribute.value);
                }
            }
        }
        result_ += html_.substr(copied_);
        return std::move(result_);
    }

private:
    void take(const Text& tag, const Text& attribute, TextView value) {
        if (workshop::holdsAddress(tag, attribute)) {
            const Text address = text::resolvedReferences(text::trimmed(value));
            if (const auto changed = newAddress_({tag, attribute, address})) {
                replace(value, *changed);
            }
        } else if (attribute == "style") {
            const Text style = text::resolvedReferences(value);
            if (Text changed = withNewUrls(style, newAddress_); changed != style) {
                replace(value, changed);
            }
        } else if (attribute == "srcset") {
            takeParts(tag, attribute, value, ',');
        } else if (tag == "param" && attribute == "value" && isListItem()) {
            takeParts(tag, attribute, value, ';');
        }
    }

    void takeSheet(TextView sheet) {
        if (Text changed = withNewUrls(sheet, newAddress_); changed != sheet) {
            const auto start = static_cast<std::size_t>(sheet.data() - html_.data());
            text::append(result_, html_.substr(copied_, start - copied_), changed);
            copied_ = start + sheet.size();
        }
    }

    /// One of a list of topics that a help's own buttons offer: "Title;page.htm".
    bool isListItem() const {
        const TextView name = reader_.attribute("name").value_or(TextView());
        return text::startsWithIgnoringCase(name, "item");
    }

    void takeParts(const Text& tag, const Text& attribute, TextView value, char divider) {
        const Text whole = text::resolvedReferences(value);
        Text list;
        bool isChanged = false;
        for (TextView rest = whole; !rest.empty();) {
            const std::size_t end = std::min(rest.find(divider), rest.size());
            const TextView part = rest.substr(0, end);
            const TextView item = text::trimmed(part);
            const TextView address =
                divider == ',' ? item.substr(0, item.find_first_of(text::whiteSpace)) : item;
            const auto changed =
                address.empty() ? std::nullopt : newAddress_({tag, attribute, Text(address)});
            if (changed) {
                const auto start = static_cast<std::size_t>(address.data() - part.data());
                text::append(list, part.substr(0, start),
                             divider == ',' ? escaped(*changed) : *changed,
                             part.substr(start + address.size()));
                isChanged = true;
            } else {
                list += part;
            }
            list += rest.substr(end, 1);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        if (isChanged) {
            replace(value, list);
        }
    }

    /// Apostrophes stand around it where they can: generation looks for links in that form.
    void replace(TextView value, const Text& address) {
        auto start = static_cast<std::size_t>(value.data() - html_.data());
        std::size_t end = start + value.size();
        const char before = start > 0 ? html_[start - 1] : ' ';
        const bool isQuoted = before == '"' || before == '\'';
        start -= isQuoted ? 1 : 0;
        end += isQuoted ? 1 : 0;
        const char quote = address.find('\'') == Text::npos ? '\'' : '"';
        result_ += html_.substr(copied_, start - copied_);
        result_ += quote;
        result_ += htmlFromText(address);
        result_ += quote;
        copied_ = end;
    }

    TextView html_;
    const NewAddress& newAddress_;
    HtmlReader reader_;
    Text result_;
    std::size_t copied_ = 0;
};

} // namespace

Text withNewUrls(TextView css, const NewAddress& newAddress) {
    constexpr TextView begin = "url(";
    const Text lower = text::lowerAscii(css);
    Text result;
    std::size_t copied = 0;
    for (std::size_t at = 0; (at = lower.find(begin, at)) != Text::npos;) {
        at += begin.size();
        const std::size_t end = css.find(')', at);
        if (end == TextView::npos) {
            break;
        }
        TextView address = text::trimmed(css.substr(at, end - at));
        const char quote = address.empty() ? ' ' : address.front();
        if (address.size() > 1 && (quote == '"' || quote == '\'') && address.back() == quote) {
            address = address.substr(1, address.size() - 2);
        }
        const bool isFile = !address.empty() && address.front() != '#' && !leadsElsewhere(address);
        if (auto changed = isFile ? newAddress({"style", "url", Text(address)}) : std::nullopt) {
            text::append(result, css.substr(copied, at - copied), escaped(std::move(*changed)));
            copied = end;
        }
        at = end;
    }
    return result.append(css.substr(copied));
}

Text withNewAddresses(TextView html, const NewAddress& newAddress) {
    return Rewriter(html, newAddress).run();
}

} // namespace importer
