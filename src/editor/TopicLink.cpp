#include "editor/TopicLink.h"

#include <algorithm>
#include <optional>
#include <set>

#include "model/PagePath.h"
#include "text/Address.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace editor {

using text::append;

namespace {

constexpr TextView slashes = "/\\";

Text plainText(TextView markUp) {
    return Text(text::trim(text::oneLine(text::resolvedReferences(markUp))));
}

std::optional<TextView> anchorOf(const text::HtmlReader& reader) {
    const auto id = reader.attribute("id");
    return id || !reader.opens("a") ? id : reader.attribute("name");
}

/// A name of the letters and digits of a heading that are good in every address, without accents.
Text anchorName(TextView heading) {
    Text name;
    for (const char c : text::searchKey(heading)) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (isPlain) {
            name += c;
        } else if (!name.empty() && name.back() != '-') {
            name += '-';
        }
    }
    while (name.ends_with('-')) {
        name.pop_back();
    }
    const bool beginsWell = !name.empty() && (name.front() < '0' || name.front() > '9');
    return beginsWell ? name : "section" + (name.empty() ? name : "-" + name);
}

/// Collects the headings of one body.
class HeadingReader {
public:
    explicit HeadingReader(TextView body) : reader_(body) {}

    /// Without their topic and page.
    std::vector<LinkTarget> read() {
        while (reader_.next()) {
            if (reader_.isText()) {
                takeText();
            } else if (!reader_.closes()) {
                takeTag();
            } else if (heading_ && text::headingLevel(reader_.lowerName()) > 0) {
                finish();
            }
        }
        giveAnchors();
        return std::move(headings_);
    }

private:
    void takeText() {
        if (heading_) {
            heading_->linkText += reader_.text();
        } else if (!text::trim(text::oneLine(reader_.text())).empty()) {
            before_.reset();
        }
    }

    void takeTag() {
        const auto anchor = anchorOf(reader_);
        if (anchor && !anchor->empty()) {
            known_.insert(text::lowerCase(*anchor));
        }
        if (const int depth = text::headingLevel(reader_.lowerName())) {
            finish(); // one that was never closed
            heading_ = LinkTarget();
            heading_->depth = depth;
            heading_->insertAt = reader_.offset() + reader_.lowerName().size();
            heading_->anchor = anchor.value_or(before_.value_or(TextView()));
            before_.reset();
        } else if (heading_ && heading_->anchor.empty()) {
            heading_->anchor = anchor.value_or(TextView());
        } else if (!heading_) {
            before_ = reader_.opens("a") ? anchor : std::nullopt;
        }
    }

    void finish() {
        if (heading_) {
            heading_->linkText = text::trim(text::oneLine(heading_->linkText));
            heading_->shown = plainText(heading_->linkText);
            if (!heading_->shown.empty()) {
                headings_.push_back(std::move(*heading_));
            }
        }
        heading_.reset();
    }

    void giveAnchors() {
        for (LinkTarget& heading : headings_) {
            if (!heading.anchor.empty()) {
                heading.insertAt = 0;
                continue;
            }
            const Text name = anchorName(heading.shown);
            heading.anchor = name;
            for (int number = 2; !known_.insert(heading.anchor).second; ++number) {
                heading.anchor = name + '-' + std::to_string(number);
            }
        }
    }

    text::HtmlReader reader_;
    std::vector<LinkTarget> headings_;
    std::optional<LinkTarget> heading_; ///< that is being read
    std::optional<TextView> before_;    ///< an anchor with nothing behind it yet
    std::set<Text> known_;
};

/// As it stands in an address within single quotes.
Text addressOf(TextView path) {
    Text address;
    for (std::size_t at = 0; at < path.size(); ++at) {
        const bool isEscape = path[at] == '%' && text::unescaped(path.substr(at, 3)).size() == 1;
        if (path[at] == '\'') {
            address += "%27";
        } else if (path[at] == '#') {
            address += "%23";
        } else {
            address += isEscape ? "%25" : TextView(&path[at], 1);
        }
    }
    return address;
}

} // namespace

std::vector<LinkTarget> linkTargets(const model::TopicOutline& outline, int edited, TextView body) {
    std::vector<LinkTarget> targets;
    for (int position = 1; position <= outline.count(); ++position) {
        const model::Topic& topic = outline.at(position);
        if (!model::pageNameFault(topic.fileName).empty()) {
            continue;
        }
        LinkTarget target;
        target.topic = position;
        target.shown = plainText(topic.title);
        target.linkText = topic.title.empty() ? topic.fileName : topic.title;
        target.page = topic.fileName;
        targets.push_back(target);
        const TextView text = position == edited ? body : TextView(topic.body);
        for (LinkTarget& heading : HeadingReader(text).read()) {
            heading.topic = position;
            heading.page = topic.fileName;
            targets.push_back(std::move(heading));
        }
    }
    return targets;
}

bool matchesFilter(const LinkTarget& target, TextView filter) {
    const Text shown = text::lowerCase(target.shown);
    const Text words = text::lowerCase(filter);
    for (TextView rest = words; !(rest = text::trim(rest)).empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (shown.find(rest.substr(0, end)) == Text::npos) {
            return false;
        }
        rest.remove_prefix(end);
    }
    return true;
}

std::vector<std::size_t> filteredTargets(std::span<const LinkTarget> targets, TextView filter) {
    std::vector<std::size_t> places;
    std::size_t topic = 0;
    for (std::size_t place = 0; place < targets.size(); ++place) {
        topic = targets[place].depth == 0 ? place : topic;
        if (!matchesFilter(targets[place], filter)) {
            continue;
        }
        if (topic != place && (places.empty() || places.back() < topic)) {
            places.push_back(topic);
        }
        places.push_back(place);
    }
    return places;
}

Text withAnchor(Text body, const LinkTarget& heading) {
    if (heading.insertAt > 0) {
        body.insert(heading.insertAt, " id='" + heading.anchor + "'");
    }
    return body;
}

Passage insertTopicLink(Passage passage, const LinkTarget& target, int edited,
                        TextView editedPage) {
    Text address;
    if (target.topic != edited || target.depth == 0) {
        const auto folders = std::count_if(editedPage.begin(), editedPage.end(), [](char c) {
            return slashes.find(c) != TextView::npos;
        });
        for (auto up = folders; up >= 0; --up) {
            address += "..\\";
        }
        append(address, model::pageFolderName, "\\", addressOf(target.page));
    }
    if (target.depth > 0) {
        append(address, "#", addressOf(target.anchor));
    }
    const Text inner =
        passage.length > 0 ? passage.text.substr(passage.start, passage.length) : target.linkText;
    const Text link = "<a href='" + address + "'>" + inner + "</a>";
    passage.text.replace(passage.start, passage.length, link);
    std::size_t caret = passage.start + link.size();
    if (target.topic == edited && target.insertAt > 0) {
        LinkTarget heading = target;
        heading.insertAt += target.insertAt > passage.start ? link.size() - passage.length : 0;
        const std::size_t before = passage.text.size();
        passage.text = withAnchor(std::move(passage.text), heading);
        caret += heading.insertAt < caret ? passage.text.size() - before : 0;
    }
    return {std::move(passage.text), caret, 0};
}

} // namespace editor
