#include "import/AddressRewriter.h"

#include <algorithm>

#include "import/ForeignPage.h"
#include "text/HtmlReader.h"
#include "workshop/PageFacts.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

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
        } else if (attribute == "srcset") {
            takeParts(tag, attribute, value, ',');
        } else if (tag == "param" && attribute == "value" && isListItem()) {
            takeParts(tag, attribute, value, ';');
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
                text::append(list, part.substr(0, start), *changed,
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

Text withNewAddresses(TextView html, const NewAddress& newAddress) {
    return Rewriter(html, newAddress).run();
}

} // namespace importer
