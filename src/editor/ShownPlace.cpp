#include "editor/ShownPlace.h"

#include "model/Variables.h"
#include "text/CharacterReferences.h"
#include "text/HtmlReader.h"

namespace editor {

using text::Text;
using text::TextView;

namespace {

constexpr char32_t fixedBlank = 0xA0;
constexpr TextView fixedBlankBytes = "\xC2\xA0";

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// One after the other of what can be seen of a page.
class SeenReader {
public:
    /// The text must outlive the reader.
    explicit SeenReader(TextView html) : reader_(html) {}

    /// Goes on to the next one; false at the end.
    bool next() {
        start_ = end_;
        while (!takeCharacter()) {
            if (!reader_.next()) {
                return false;
            }
            piece_ = reader_.text();
            inPiece_ = 0;
            if (reader_.opens("img")) {
                start_ = reader_.offset() - 1; // with its "<"
                end_ = reader_.end();
                return true;
            }
        }
        return true;
    }

    // Of the one that it stands at; at the end, both are where the last one ends.
    std::size_t start() const { return start_; }
    std::size_t end() const { return end_; }

private:
    bool takeCharacter() {
        while (inPiece_ < piece_.size()) {
            const std::size_t at = inPiece_;
            const text::CharacterReference reference = text::shownReferenceAt(piece_, at);
            inPiece_ += reference.length > 0 ? reference.length : bytesAt(at);
            const bool blank =
                reference.length > 0
                    ? reference.character == fixedBlank
                    : isBlank(piece_[at]) || piece_.substr(at).starts_with(fixedBlankBytes);
            if (!blank) {
                start_ = reader_.offset() + at;
                end_ = reader_.offset() + inPiece_;
                return true;
            }
        }
        return false;
    }

    std::size_t bytesAt(std::size_t at) const {
        const auto goesOn = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
        std::size_t bytes = 1;
        while (at + bytes < piece_.size() && goesOn(piece_[at + bytes])) {
            ++bytes;
        }
        return bytes;
    }

    text::HtmlReader reader_;
    TextView piece_;
    std::size_t inPiece_ = 0;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
};

std::size_t countSeen(TextView html) {
    SeenReader reader(html);
    std::size_t count = 0;
    while (reader.next()) {
        ++count;
    }
    return count;
}

/// The place in a body of a place in the same body with its variables' values.
std::size_t withoutValues(std::size_t place, const std::vector<model::VariableUse>& uses) {
    std::size_t longer = 0; // by the values up to there, less the names
    std::size_t shorter = 0;
    for (const model::VariableUse& use : uses) {
        if (use.variable == nullptr) {
            continue;
        }
        const std::size_t start = use.start + longer - shorter;
        if (place < start) {
            break;
        }
        if (place < start + use.variable->value.size()) {
            return use.start;
        }
        longer += use.variable->value.size();
        shorter += use.length;
    }
    return place + shorter - longer;
}

} // namespace

std::optional<std::size_t> bodyPlace(const ShownPlace& place, TextView title, TextView body,
                                     const model::ProjectOptions& options) {
    const std::size_t inTitle = countSeen(title);
    if (place.seen < inTitle || (place.seen == inTitle && place.behind)) {
        return {};
    }
    const std::vector<model::Variable> variables = model::shownVariables(options);
    const Text shown = model::withVariables(body, variables);
    SeenReader reader(shown);
    for (std::size_t left = place.seen - inTitle; left > 0; --left) {
        if (!reader.next()) {
            return {};
        }
    }
    if (!place.behind) {
        reader.next();
    }
    return withoutValues(place.behind ? reader.end() : reader.start(),
                         model::variableUses(body, variables));
}

} // namespace editor
