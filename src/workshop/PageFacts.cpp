#include "workshop/PageFacts.h"

#include <algorithm>
#include <optional>

#include "text/Address.h"
#include "text/ForeignText.h"
#include "text/HtmlReader.h"
#include "workshop/LineCounter.h"

namespace workshop {

namespace {

/// With one blank for each run of them, and none around.
std::string collapsed(std::string_view text) {
    std::string line;
    for (const char character : text) {
        if (!text::isWhiteSpace(character)) {
            line += character;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (line.ends_with(' ')) {
        line.pop_back();
    }
    return line;
}

struct Reference {
    std::string_view tag;
    std::string_view attribute;
};

constexpr Reference references[] = {
    {"a", "href"},        {"area", "href"},     {"link", "href"},       {"img", "src"},
    {"img", "lowsrc"},    {"img", "dynsrc"},    {"script", "src"},      {"frame", "src"},
    {"iframe", "src"},    {"embed", "src"},     {"input", "src"},       {"bgsound", "src"},
    {"source", "src"},    {"track", "src"},     {"audio", "src"},       {"video", "src"},
    {"video", "poster"},  {"object", "data"},   {"body", "background"}, {"table", "background"},
    {"tr", "background"}, {"td", "background"}, {"th", "background"},
};

class PageReader {
public:
    explicit PageReader(std::string_view html) : reader_(html), lines_(html) {}

    PageFacts read() {
        while (reader_.next()) {
            if (reader_.isText()) {
                takeText();
            } else {
                takeTag();
            }
        }
        endHeading();
        facts_.title.text = collapsed(text::resolvedReferences(facts_.title.text));
        return std::move(facts_);
    }

private:
    void takeText() {
        if (inTitle_) {
            facts_.title.text += reader_.text();
        } else if (inHeading_) {
            facts_.headings.back().text += reader_.text();
        }
    }

    void takeTag() {
        const std::string name = reader_.lowerName();
        const bool opens = reader_.opens(name);
        attributes_.clear();
        if (opens) {
            reader_.takeAttributes(attributes_);
        }
        inTitle_ = opens && name == "title" && facts_.title.line == 0;
        if (inTitle_) {
            facts_.title.line = line();
        }
        takeHeading(name, opens);
        if (!opens) {
            return;
        }
        if (!attributes_.empty()) {
            takeAnchors(name);
            takeAddresses(name);
        }
        if (name == "base" && facts_.base.empty()) {
            facts_.base = value("href");
        } else if (name == "meta") {
            takeMeta();
        } else if (name == "param") {
            takeParameter();
        } else if (name == "style") {
            append(readStyleSheet(reader_.contents(), line()));
        }
    }

    int line() { return lines_.at(reader_.offset()); }

    /// Empty for a tag without the attribute.
    std::string value(std::string_view attribute) const {
        return text::resolvedReferences(attributeOf(attribute).value_or(std::string_view()));
    }

    /// Nothing for a tag without it.
    std::optional<std::string_view> attributeOf(std::string_view lowerName) const {
        for (const text::HtmlReader::Attribute& each : attributes_) {
            if (text::equalIgnoringCase(each.name, lowerName)) {
                return each.value.value_or(std::string_view());
            }
        }
        return {};
    }

    void append(std::vector<PageText> addresses) {
        facts_.addresses.insert(facts_.addresses.end(), std::make_move_iterator(addresses.begin()),
                                std::make_move_iterator(addresses.end()));
    }

    void takeHeading(const std::string& name, bool opens) {
        if (text::headingLevel(name) == 0) {
            return;
        }
        endHeading();
        if (opens) {
            facts_.headings.push_back({static_cast<unsigned>(name[1] - '0'), {}, value("id")});
        }
        inHeading_ = opens;
    }

    void endHeading() {
        if (inHeading_) {
            Heading& heading = facts_.headings.back();
            heading.text = collapsed(text::resolvedReferences(heading.text));
        }
    }

    void takeAnchors(const std::string& name) {
        const auto id = attributeOf("id");
        auto anchor = name == "a" ? attributeOf("name") : std::nullopt;
        if (id && anchor && *id == *anchor) {
            anchor.reset();
        }
        for (const auto& each : {id, anchor}) {
            if (each && !each->empty()) {
                const std::string text = text::resolvedReferences(*each);
                const bool isNew = known_.insert(text).second;
                (isNew ? facts_.anchors : facts_.repeatedAnchors).push_back({text, line()});
                if (inHeading_ && facts_.headings.back().anchor.empty()) {
                    facts_.headings.back().anchor = text;
                }
            }
        }
    }

    void takeAddresses(const std::string& name) {
        for (const Reference& reference : references) {
            if (reference.tag == name) {
                addAddress(value(reference.attribute));
            }
        }
        if (name == "img" || name == "source") {
            takeSourceSet(value("srcset"));
        }
        if (const auto style = attributeOf("style")) {
            append(readStyleSheet(text::resolvedReferences(*style), line()));
        }
    }

    void addAddress(std::string address) {
        address = collapsed(address);
        if (!address.empty()) {
            facts_.addresses.push_back({std::move(address), line()});
        }
    }

    /// Addresses, each with a width behind it, and commas between.
    void takeSourceSet(const std::string& set) {
        for (std::string_view rest = set; !rest.empty();) {
            rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n\f,"), rest.size()));
            std::string_view address = rest.substr(0, rest.find_first_of(text::whiteSpace));
            rest.remove_prefix(address.size());
            const bool hasWidth = !address.ends_with(',');
            address = address.substr(0, address.find_last_not_of(',') + 1);
            addAddress(std::string(address));
            if (hasWidth) {
                rest.remove_prefix(std::min(rest.find(','), rest.size()));
            }
        }
    }

    void takeNames(std::vector<PageText>& names, const std::string& values) {
        for (std::string_view rest = values; !rest.empty();) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            if (std::string name = collapsed(rest.substr(0, end)); !name.empty()) {
                names.push_back({std::move(name), line()});
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    void takeMeta() {
        const std::string name = text::lowerCase(value("name"));
        if (name == "ms-hkwd") {
            takeNames(facts_.keywords, value("content"));
        } else if (name == "ms-haid") {
            takeNames(facts_.associativeLinks, value("content"));
        }
    }

    void takeParameter() {
        const std::string name = text::lowerCase(value("name"));
        if (name == "keyword") {
            takeNames(facts_.keywords, value("value"));
        } else if (name == "alink name") {
            takeNames(facts_.associativeLinks, value("value"));
        }
    }

    text::HtmlReader reader_;
    LineCounter lines_;
    std::vector<text::HtmlReader::Attribute> attributes_; ///< of a tag that opens
    PageFacts facts_;
    std::unordered_set<std::string> known_;
    bool inTitle_ = false;
    bool inHeading_ = false;
};

/// Takes the address off the front of a style sheet that begins with "url(" or "@import".
std::string_view takeStyleAddress(std::string_view& css) {
    const bool isImport = css.front() == '@';
    css.remove_prefix(isImport ? 7 : 4);
    css.remove_prefix(std::min(css.find_first_not_of(text::whiteSpace), css.size()));
    const char quote = css.empty() ? '\0' : css.front();
    if (quote != '"' && quote != '\'') {
        if (isImport) {
            return {}; // "url(" follows, and is found by itself
        }
        const std::string_view address = css.substr(0, css.find_first_of(" \t\r\n\f)"));
        css.remove_prefix(address.size());
        return address;
    }
    css.remove_prefix(1);
    const std::string_view address =
        css.substr(0, css.find_first_of(quote == '"' ? "\"\n" : "'\n"));
    css.remove_prefix(address.size());
    return address;
}

} // namespace

bool hasPlace(const std::unordered_set<std::string>& anchors, const std::string& fragment,
              unsigned codePage) {
    return fragment.empty() || text::equalIgnoringCase(fragment, "top")
           || anchors.contains(fragment)
           || (fragment.find('%') != std::string::npos
               && anchors.contains(text::decodedSource(text::unescaped(fragment), codePage).utf8));
}

bool holdsAddress(std::string_view tag, std::string_view attribute) {
    return std::any_of(std::begin(references), std::end(references),
                       [tag, attribute](const Reference& each) {
                           return each.tag == tag && each.attribute == attribute;
                       });
}

PageFacts readPage(std::string_view utf8) {
    return PageReader(utf8).read();
}

std::vector<PageText> readStyleSheet(std::string_view css, int firstLine) {
    std::vector<PageText> addresses;
    LineCounter lines(css);
    const char* start = css.data();
    for (std::string_view rest = css; !rest.empty();) {
        rest.remove_prefix(std::min(rest.find_first_of("/uU@"), rest.size()));
        if (rest.starts_with("/*")) {
            const std::size_t end = rest.find("*/", 2);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
        } else if (text::startsWithIgnoringCase(rest, "url(")
                   || text::startsWithIgnoringCase(rest, "@import")) {
            const auto offset = static_cast<std::size_t>(rest.data() - start);
            if (const std::string_view address = takeStyleAddress(rest); !address.empty()) {
                addresses.push_back({std::string(address), firstLine + lines.at(offset) - 1});
            }
        } else if (!rest.empty()) {
            rest.remove_prefix(1);
        }
    }
    return addresses;
}

} // namespace workshop
