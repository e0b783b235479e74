#include "tools/PlaceSearch.h"

#include <algorithm>

#include "model/OutlineEditing.h"
#include "text/CharacterReferences.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace tools {

using model::Topic;

namespace {

/// A text without its references, and where each piece of it stood.
struct PlainText {
    Text text;
    struct Step {
        std::size_t plain;
        std::size_t source;
    };
    std::vector<Step> steps; ///< by both offsets; between two of them, lengths are the same

    /// An offset in the source; that behind a reference for its end.
    std::size_t sourceOf(std::size_t plain) const {
        const auto after = std::upper_bound(
            steps.begin(), steps.end(), plain,
            [](std::size_t offset, const Step& step) { return offset < step.plain; });
        const Step& step = *std::prev(after);
        return step.source + plain - step.plain;
    }
};

PlainText withoutReferences(TextView source) {
    PlainText plain;
    plain.steps.push_back({0, 0});
    for (std::size_t at = 0; at < source.size();) {
        const std::size_t next = std::min(source.find('&', at), source.size());
        plain.text += source.substr(at, next - at);
        at = next;
        if (at == source.size()) {
            break;
        }
        const text::CharacterReference reference = text::characterReferenceAt(source, at);
        if (reference.length == 0 || reference.character == text::unknownCharacter) {
            plain.text += source[at++];
            continue;
        }
        plain.steps.push_back({plain.text.size(), at});
        text::appendUtf8(plain.text, reference.character);
        at += reference.length;
        plain.steps.push_back({plain.text.size(), at});
    }
    return plain;
}

/// As it has to stand in mark-up to be seen as it is.
Text asVisible(TextView text) {
    Text made;
    for (std::size_t at = 0; at < text.size(); ++at) {
        constexpr TextView fixedBlank = "\u00A0";
        if (text.substr(at).starts_with(fixedBlank)) {
            made += "&nbsp;";
            at += fixedBlank.size() - 1;
            continue;
        }
        switch (text[at]) {
        case '<':
            made += "&lt;";
            break;
        case '>':
            made += "&gt;";
            break;
        case '&':
            made += "&amp;";
            break;
        default:
            made += text[at];
        }
    }
    return made;
}

/// Counts lines up to places that come in their order.
class LineCounter {
public:
    explicit LineCounter(TextView text) : text_(text) {}

    std::size_t lineOf(std::size_t place) {
        for (; feed_ < place; feed_ = text_.find('\n', feed_ + 1)) {
            ++line_;
        }
        for (; lone_ < place; lone_ = loneReturn(lone_ + 1)) {
            ++line_;
        }
        return line_;
    }

private:
    /// One that ends a line without a line feed behind it.
    std::size_t loneReturn(std::size_t from) const {
        std::size_t at = text_.find('\r', from);
        while (at != TextView::npos && text_.substr(at + 1, 1) == "\n") {
            at = text_.find('\r', at + 2);
        }
        return at;
    }

    TextView text_;
    // The next ones that end a line.
    std::size_t feed_ = text_.find('\n');
    std::size_t lone_ = loneReturn(0);
    std::size_t line_ = 1;
};

/// What stands around a place in its line, not too much of it.
Text excerptOf(TextView text, std::size_t start, std::size_t length) {
    constexpr std::size_t mostBefore = 30;
    constexpr std::size_t mostAfter = 90;
    constexpr TextView lineEnds = "\r\n";
    const std::size_t lineStart = start == 0 ? 0 : text.find_last_of(lineEnds, start - 1) + 1;
    std::size_t from = start - std::min(start - lineStart, mostBefore);
    while (from < start && text::continuesCharacter(text[from])) {
        ++from;
    }
    const std::size_t shown = std::min(start + std::min(length, mostAfter), text.size());
    std::size_t to = std::min(text.find_first_of(lineEnds, shown), text.size());
    const bool cut = to > start + mostAfter;
    to = cut ? start + mostAfter : to;
    while (to > start && to < text.size() && text::continuesCharacter(text[to])) {
        --to;
    }
    return (from > lineStart ? "..." : "") + text::oneLine(text.substr(from, to - from))
           + (cut ? "..." : "");
}

bool isLineEnd(char character) {
    return character == '\r' || character == '\n';
}

} // namespace

const char* nameOf(TopicPart part) {
    constexpr const char* names[] = {"title", "description", "keywords", "body"};
    return names[static_cast<std::size_t>(part)];
}

Text Topic::*fieldOf(TopicPart part) {
    constexpr Text Topic::*fields[] = {&Topic::title, &Topic::shortDescription, &Topic::keywords,
                                       &Topic::body};
    return fields[static_cast<std::size_t>(part)];
}

Text described(const Place& place) {
    Text line = nameOf(place.part);
    if (place.part == TopicPart::body) {
        line += ", line " + std::to_string(place.line);
    }
    return line + ": " + place.excerpt;
}

bool PlaceSearch::visitPlain(PatternSearch& search, const Visit& found) {
    match_ = &search;
    while (search.next()) {
        if (!found(search.start(), search.length())) {
            return false;
        }
    }
    failed_ = search.failed();
    return !failed_;
}

/// A piece between two tags of a text.
bool PlaceSearch::visitPiece(TextView text, TextView piece, const Visit& found) {
    const auto start = static_cast<std::size_t>(piece.data() - text.data());
    const std::size_t end = start + piece.size();
    if (end < from_ || piece.size() < pattern_.leastLength()) {
        return true;
    }
    const PatternSearch::Surroundings around{start == 0 || isLineEnd(text[start - 1]),
                                             end == text.size() || isLineEnd(text[end]), isSound_};
    if (piece.find('&') == TextView::npos) {
        PatternSearch search(pattern_, piece, around);
        return visitPlain(search, [&](std::size_t place, std::size_t length) {
            return found(start + place, length);
        });
    }
    const PlainText plain = withoutReferences(piece);
    PatternSearch search(pattern_, plain.text, around);
    return visitPlain(search, [&](std::size_t place, std::size_t length) {
        const std::size_t first = plain.sourceOf(place);
        return found(start + first, plain.sourceOf(place + length) - first);
    });
}

PlaceSearch::Outcome PlaceSearch::visit(TextView text, TopicPart part, const Visit& found) {
    failed_ = false;
    pattern_.restartClock();
    bool goesOn = true;
    if (question_.visibleOnly && part == TopicPart::body) {
        text::HtmlReader reader(text);
        isSound_ = text::isUtf8(text);
        while (goesOn && reader.next()) {
            goesOn = !reader.isText() || visitPiece(text, reader.text(), found);
        }
    } else {
        PatternSearch search(pattern_, text);
        goesOn = visitPlain(search, found);
    }
    match_ = nullptr;
    return failed_ ? Outcome::tooComplex : goesOn ? Outcome::done : Outcome::tooMany;
}

PlaceSearch::Outcome PlaceSearch::search(const model::TopicOutline& outline, int position,
                                         std::vector<Place>& places, std::size_t most) {
    for (const TopicPart part : topicParts) {
        if (!question_.parts[static_cast<std::size_t>(part)]) {
            continue;
        }
        const Text& text = outline.at(position).*fieldOf(part);
        const std::size_t first = places.size();
        std::optional<LineCounter> lines; // few texts hold a match
        const Outcome outcome = visit(text, part, [&](std::size_t start, std::size_t length) {
            if (places.size() >= most) {
                return false;
            }
            if (!lines) {
                lines.emplace(text);
            }
            places.push_back({position, part, start, length, lines->lineOf(start),
                              excerptOf(text, start, length), 0});
            return true;
        });
        const std::size_t hash = places.size() > first ? std::hash<Text>()(text) : 0;
        std::for_each(places.begin() + static_cast<std::ptrdiff_t>(first), places.end(),
                      [hash](Place& place) { place.textHash = hash; });
        if (outcome != Outcome::done) {
            return outcome;
        }
    }
    return Outcome::done;
}

/// Replaces some places of a text, which are known to be there, and gives how many were.
std::size_t PlaceSearch::replaceInText(Text& text, std::span<const Place> places,
                                       const Replacement& replacement) {
    const TopicPart part = places.front().part;
    const bool asMarkUp = question_.visibleOnly && part == TopicPart::body;
    Text made;
    std::size_t done = 0;
    auto wanted = places.begin();
    from_ = wanted->start;
    visit(text, part, [&](std::size_t start, std::size_t length) {
        if (start == wanted->start && length == wanted->length) {
            const Text with = replacement.madeFor(*match_);
            text::append(made, TextView(text).substr(done, start - done),
                         asMarkUp ? asVisible(with) : with);
            done = start + length;
            ++wanted;
        }
        from_ = wanted == places.end() ? 0 : wanted->start;
        return wanted != places.end();
    });
    from_ = 0;
    text = made + text.substr(done);
    return static_cast<std::size_t>(wanted - places.begin());
}

PlaceSearch::Replaced PlaceSearch::replace(model::Project& project, std::span<const Place> places,
                                           const Replacement& replacement) {
    Replaced result;
    const model::UndoStep step(project, "Replace in Project");
    int lastTopic = 0;
    while (!places.empty()) {
        const Place& first = places.front();
        const auto end = std::find_if(places.begin(), places.end(), [&first](const Place& place) {
            return place.topic != first.topic || place.part != first.part;
        });
        const auto count = static_cast<std::size_t>(end - places.begin());
        const auto field = fieldOf(first.part);
        const bool isThere = first.topic <= project.outline().count();
        Text text = isThere ? project.outline().at(first.topic).*field : Text();
        std::size_t replaced = 0;
        if (isThere && std::hash<Text>()(text) == first.textHash) {
            replaced = replaceInText(text, places.first(count), replacement);
        }
        if (replaced > 0) {
            project.setField(first.topic, field, std::move(text));
            model::markTopicChanged(project, first.topic);
            result.topics += first.topic == lastTopic ? 0U : 1U;
            lastTopic = first.topic;
        }
        result.places += replaced;
        result.left += count - replaced;
        places = places.subspan(count);
    }
    return result;
}

} // namespace tools
