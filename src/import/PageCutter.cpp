#include "import/PageCutter.h"

#include <algorithm>
#include <unordered_map>

#include "text/HtmlReader.h"

namespace importer {

using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr std::size_t nowhere = Text::npos;

bool hasEndTag(TextView name) {
    constexpr TextView without[] = {"p",     "li",   "dt",   "dd",   "br",    "hr",    "img",
                                    "input", "meta", "link", "col",  "param", "embed", "tr",
                                    "td",    "th",   "area", "base", "wbr",   "option"};
    return std::find(std::begin(without), std::end(without), name) == std::end(without)
           && name.front() != '!' && name.front() != '?';
}

/// Where the part of each anchor begins.
std::vector<std::size_t> startsOf(TextView body, const std::vector<Text>& anchors) {
    std::unordered_map<Text, std::size_t> wanted;
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        wanted.try_emplace(anchors[i], i);
    }
    std::vector<std::size_t> starts(anchors.size(), nowhere);
    std::size_t heading = nowhere; // where the one begins that is open
    HtmlReader reader(body);
    while (reader.next()) {
        if (reader.isText()) {
            continue;
        }
        if (text::headingLevel(reader.lowerName()) > 0) {
            heading = reader.closes() ? nowhere : reader.offset() - 1;
        }
        for (const TextView name : {"id", "name"}) {
            const auto value = reader.closes() || (name == "name" && !reader.opens("a"))
                                   ? std::nullopt
                                   : reader.attribute(name);
            const auto found = value ? wanted.find(text::resolvedReferences(*value)) : wanted.end();
            if (found != wanted.end() && starts[found->second] == nowhere) {
                starts[found->second] = heading == nowhere ? reader.offset() - 1 : heading;
            }
        }
    }
    return starts;
}

/// Without end tags of what was not opened, and with those of what was not closed.
Text balanced(TextView html) {
    Text result;
    std::vector<Text> open;
    std::unordered_map<Text, std::size_t> counts; // of those by their names
    std::size_t copied = 0;
    HtmlReader reader(html);
    while (reader.next()) {
        const Text name = reader.isText() ? Text() : reader.lowerName();
        if (name.empty() || !hasEndTag(name)) {
            continue;
        }
        if (!reader.closes()) {
            open.push_back(name);
            ++counts[name];
            continue;
        }
        if (counts[name] == 0) {
            const std::size_t start = reader.offset() - 2;
            result += html.substr(copied, start - copied);
            copied = reader.end();
            continue;
        }
        for (bool isPartner = false; !isPartner; open.pop_back()) {
            isPartner = open.back() == name;
            --counts[open.back()];
        }
    }
    result += html.substr(copied);
    for (auto tag = open.rbegin(); tag != open.rend(); ++tag) {
        text::append(result, "</", *tag, ">");
    }
    return result;
}

} // namespace

std::vector<Text> cutAt(TextView body, const std::vector<Text>& anchors) {
    const std::vector<std::size_t> starts = startsOf(body, anchors);
    std::vector<std::size_t> sorted = starts;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::find(sorted.begin(), sorted.end(), nowhere), sorted.end());
    const auto endAfter = [&](std::size_t start) {
        const auto next = std::upper_bound(sorted.begin(), sorted.end(), start);
        return next == sorted.end() ? body.size() : *next;
    };
    std::vector<Text> parts{
        balanced(body.substr(0, sorted.empty() ? body.size() : sorted.front()))};
    for (const std::size_t start : starts) {
        parts.push_back(start == nowhere ? Text()
                                         : balanced(body.substr(start, endAfter(start) - start)));
    }
    return parts;
}

std::vector<Text> anchorsIn(TextView body) {
    std::vector<Text> anchors;
    HtmlReader reader(body);
    while (reader.next()) {
        for (const TextView name : {"id", "name"}) {
            const bool isAnchor =
                !reader.isText() && !reader.closes() && (name == "id" || reader.opens("a"));
            const auto value = isAnchor ? reader.attribute(name) : std::nullopt;
            if (value && !value->empty()) {
                anchors.push_back(text::resolvedReferences(*value));
            }
        }
    }
    return anchors;
}

} // namespace importer
