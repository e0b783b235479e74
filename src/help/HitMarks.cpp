#include "help/HitMarks.h"

#include <algorithm>
#include <cstdint>

#include "text/CharacterReferences.h"
#include "text/HtmlReader.h"
#include "text/Unicode.h"

namespace help {

namespace {

constexpr std::string_view opening = R"(<span style="background-color:#ffe08a;color:#000000">)";
constexpr std::string_view closing = "</span>";

/// Where tags would be seen as text.
bool holdsPlainText(const text::HtmlReader& reader) {
    constexpr std::string_view names[] = {"title", "textarea", "select", "option"};
    return std::any_of(std::begin(names), std::end(names),
                       [&reader](std::string_view name) { return reader.opens(name); });
}

/// A part of the page's bytes.
struct Range {
    std::size_t start;
    std::size_t end;
};

/// The text of a page as searchable() makes it, and where each byte of it comes from.
class PlacedText {
public:
    explicit PlacedText(std::string_view html) : html_(html) {
        text::HtmlReader reader(html);
        bool isPlain = false;
        while (reader.next()) {
            if (!reader.isText()) {
                isPlain = holdsPlainText(reader);
                if (!text::isInlineTag(reader.lowerName())) {
                    addBlank({reader.offset(), reader.offset()});
                }
            } else if (!isPlain) {
                add(reader.offset(), reader.offset() + reader.text().size());
            }
        }
    }

    const std::string& text() const { return text_; }
    Range placeOf(std::size_t offset) const { return places_[offset]; }

private:
    void add(std::size_t at, std::size_t end) {
        while (at < end) {
            const text::CharacterReference reference = text::characterReferenceAt(html_, at);
            std::string_view rest = html_.substr(at, end - at);
            const char32_t own = text::takeUtf8(rest);
            const bool isReference =
                reference.length > 0 && reference.character != text::unknownCharacter;
            const std::size_t next = isReference ? at + reference.length : end - rest.size();
            addLetter(isReference ? reference.character : own, {at, next});
            at = next;
        }
    }

    void addLetter(char32_t letter, Range place) {
        const std::size_t before = text_.size();
        text_ += searchable(utf8Of(letter));
        places_.resize(text_.size(), place);
        if (text_.size() == before && letter != softHyphen) {
            addBlank(place);
        }
        if (text_.size() == before && before > 0 && places_.back().end == place.start) {
            places_.back().end = place.end; // it belongs to what stands before it
        }
    }

    void addBlank(Range place) {
        if (!text_.empty() && text_.back() != ' ') {
            text_ += ' ';
            places_.push_back(place);
        }
    }

    static std::string utf8Of(char32_t letter) {
        std::string utf8;
        text::appendUtf8(utf8, letter);
        return utf8;
    }

    static constexpr char32_t softHyphen = 0xAD;

    std::string_view html_;
    std::string text_;
    std::vector<Range> places_;
};

/// The parts of the page to colour, in their order; one that goes on behind a tag is two.
std::vector<Range> hitsIn(const PlacedText& text, const HelpQuestion& question) {
    std::vector<bool> isHit(text.text().size());
    for (const HelpQuestion::Terms& terms : question.alternatives()) {
        for (const SearchTerm& term : terms) {
            if (!term.isExcluded) {
                forEachPlace(term, text.text(), [&](std::size_t start) {
                    std::fill_n(isHit.begin() + static_cast<std::ptrdiff_t>(start),
                                term.text.size(), true);
                    return true;
                });
            }
        }
    }
    std::vector<Range> hits;
    for (std::size_t i = 0; i < isHit.size(); ++i) {
        const Range place = text.placeOf(i);
        if (!isHit[i] || place.start == place.end) {
            continue;
        }
        if (!hits.empty() && place.start <= hits.back().end) {
            hits.back().end = std::max(hits.back().end, place.end);
        } else {
            hits.push_back(place);
        }
    }
    return hits;
}

} // namespace

std::string withHitsMarked(const std::string& html, const HelpQuestion& question) {
    const PlacedText text(html);
    std::string marked;
    std::size_t done = 0;
    for (const Range& hit : hitsIn(text, question)) {
        marked.append(html, done, hit.start - done).append(opening);
        marked.append(html, hit.start, hit.end - hit.start).append(closing);
        done = hit.end;
    }
    return marked.append(html, done);
}

} // namespace help
