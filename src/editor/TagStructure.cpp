#include "editor/TagStructure.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "editor/TagReader.h"

namespace editor {

namespace {

bool isIn(TextView name, std::initializer_list<TextView> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

struct OpenTag {
    Text name;
    TextPart tag;
};

/// Goes through the tags and tells which belong together and which to none.
class TagMatcher {
public:
    explicit TagMatcher(TextView text) : tags_(text) {}

    std::function<void(const OpenTag& open, TextPart close)> matched;
    /// What the end tag of something around it leaves open, or the text's end: then it is empty.
    std::function<void(const OpenTag& open, TextView closedBy)> leftOpen;
    std::function<void(TextView name, TextPart close, bool crosses)> closesNothing;

    void run() {
        while (tags_.next()) {
            const TextPart tag{tags_.start(), tags_.end() - tags_.start()};
            const Text& name = tags_.name();
            if (tags_.closes()) {
                close(name, tag);
            } else if (!isEmptyElement(name) && !tags_.tag().ends_with("/>")) {
                open_.push_back({name, tag});
                ++count_[name];
            }
        }
    }

    void leaveOpen() {
        while (!open_.empty()) {
            drop({});
        }
    }

    const std::vector<OpenTag>& open() const { return open_; }

private:
    void close(const Text& name, TextPart tag) {
        if (count_[name] == 0) {
            const auto left = left_.find(name);
            const bool crosses = left != left_.end() && left->second > 0;
            if (crosses) {
                --left->second;
            }
            if (closesNothing) {
                closesNothing(name, tag, crosses);
            }
            return;
        }
        while (open_.back().name != name) {
            drop(name);
        }
        if (matched) {
            matched(open_.back(), tag);
        }
        --count_[name];
        open_.pop_back();
    }

    void drop(TextView closedBy) {
        OpenTag& tag = open_.back();
        --count_[tag.name];
        if (!mayStayOpen(tag.name)) {
            ++left_[tag.name];
            if (leftOpen) {
                leftOpen(tag, closedBy);
            }
        }
        open_.pop_back();
    }

    TagReader tags_;
    std::vector<OpenTag> open_;
    std::unordered_map<Text, int> count_; ///< of those that are open
    std::unordered_map<Text, int> left_;  ///< of those that were left open
};

Text shown(TextView name, bool closes = false) {
    return (closes ? "</" : "<") + Text(name) + ">";
}

} // namespace

bool isEmptyElement(TextView lowerName) {
    return lowerName.starts_with('!') || lowerName.starts_with('?')
           || isIn(lowerName,
                   {"area", "base", "basefont", "bgsound", "br", "col", "embed", "frame", "hr",
                    "img", "input", "link", "meta", "param", "source", "track", "wbr"});
}

bool mayStayOpen(TextView lowerName) {
    return isIn(lowerName, {"p", "li", "dt", "dd", "tr", "td", "th", "thead", "tbody", "tfoot",
                            "colgroup", "option", "html", "head", "body"});
}

std::vector<TagFault> tagFaults(TextView text) {
    constexpr std::size_t most = 200;
    std::vector<TagFault> faults;
    const auto add = [&faults](TextPart tag, Text message) {
        if (faults.size() < most) {
            faults.push_back({tag, std::move(message)});
        }
    };
    TagMatcher matcher(text);
    matcher.leftOpen = [&add](const OpenTag& open, TextView closedBy) {
        add(open.tag, closedBy.empty() ? shown(open.name) + " is never closed."
                                       : shown(open.name) + " is not closed before "
                                             + shown(closedBy, true) + ".");
    };
    matcher.closesNothing = [&add](TextView name, TextPart close, bool crosses) {
        add(close, crosses ? shown(name, true) + " crosses the end of another element."
                           : shown(name, true) + " closes nothing.");
    };
    matcher.run();
    matcher.leaveOpen();
    std::sort(faults.begin(), faults.end(),
              [](const TagFault& a, const TagFault& b) { return a.tag.start < b.tag.start; });
    return faults;
}

std::optional<TagPair> tagPairAt(TextView text, std::size_t caret) {
    const auto holds = [caret](TextPart tag) { return tag.start <= caret && caret <= tag.end(); };
    std::optional<TagPair> pair;
    TagMatcher matcher(text);
    matcher.matched = [&](const OpenTag& open, TextPart close) {
        if ((holds(open.tag) || holds(close)) && !pair) {
            pair = {open.tag, close};
        }
    };
    matcher.run();
    return pair;
}

std::vector<TextPart> openTags(TextView text) {
    TagMatcher matcher(text);
    matcher.run();
    std::vector<TextPart> tags;
    for (const OpenTag& open : matcher.open()) {
        tags.push_back(open.tag);
    }
    return tags;
}

Text elementToClose(TextView text) {
    TagMatcher matcher(text);
    matcher.run();
    const TextView line = text.substr(std::min(text.find_last_of('\n') + 1, text.size()));
    const bool lineStart = line.find_first_not_of(" \t") == TextView::npos;
    const auto& open = matcher.open();
    for (auto tag = open.rbegin(); tag != open.rend(); ++tag) {
        if (!lineStart || !mayStayOpen(tag->name)) {
            return Text(text.substr(tag->tag.start + 1, tag->name.size()));
        }
    }
    return {};
}

std::size_t visibleWordCount(TextView text) {
    std::size_t count = 0;
    bool inWord = false;
    for (text::HtmlReader reader(text); reader.next();) {
        if (!reader.isText()) {
            inWord = inWord && text::isInlineTag(reader.lowerName());
            continue;
        }
        for (const char character : reader.text()) {
            const bool blank = static_cast<unsigned char>(character) <= ' ';
            count += !blank && !inWord ? 1 : 0;
            inWord = !blank;
        }
    }
    return count;
}

} // namespace editor
