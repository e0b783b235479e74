#include "import/VariableNames.h"

#include <algorithm>
#include <set>

#include "platform/Clock.h"

namespace importer {

using model::Variable;
using model::VariableUse;
using text::Text;
using text::TextView;

namespace {

constexpr int unmatched = -1;

/// More edits than these are too many to find the shortest way through them.
constexpr int mostEdits = 2000;

bool isWordCharacter(char c) {
    return text::isAsciiLetterOrDigit(c) || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

/// Words, and each other character for itself.
std::vector<TextView> wordsOf(TextView text) {
    std::vector<TextView> words;
    while (!text.empty()) {
        const auto end = std::find_if_not(text.begin(), text.end(), isWordCharacter);
        const auto length = std::max<std::size_t>(static_cast<std::size_t>(end - text.begin()), 1);
        words.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return words;
}

using Words = std::vector<TextView>;

/// Which words of one text stand in another, by the least edits; for each its place there. Nothing
/// when there are too many.
class WordMatcher {
public:
    WordMatcher(const Words& before, const Words& after) : before_(before), after_(after) {}

    std::optional<std::vector<int>> match() {
        std::vector<int> places(before_.size(), unmatched);
        const auto shorter = std::min(before_.size(), after_.size());
        while (front_ < shorter && before_[front_] == after_[front_]) {
            places[front_] = static_cast<int>(front_);
            ++front_;
        }
        while (back_ < shorter - front_
               && before_[before_.size() - 1 - back_] == after_[after_.size() - 1 - back_]) {
            ++back_;
            places[before_.size() - back_] = static_cast<int>(after_.size() - back_);
        }
        rows_ = static_cast<int>(before_.size() - front_ - back_);
        columns_ = static_cast<int>(after_.size() - front_ - back_);
        const int edits = search();
        if (edits < 0) {
            return {};
        }
        walkBack(edits, places);
        return places;
    }

private:
    bool same(int row, int column) const {
        return before_[front_ + static_cast<std::size_t>(row)]
               == after_[front_ + static_cast<std::size_t>(column)];
    }

    /// On each diagonal the row that is reached with so many edits; `furthest_` keeps all of them.
    int search() {
        for (int edits = 0; edits <= std::min(mostEdits, rows_ + columns_); ++edits) {
            std::vector<int> reached(static_cast<std::size_t>(edits) + 1);
            for (int step = 0; step <= edits; ++step) {
                const int diagonal = 2 * step - edits; // column less row
                int row = edits == 0 ? 0 : startOf(edits, diagonal);
                while (row >= 0 && row < rows_ && row + diagonal >= 0 && row + diagonal < columns_
                       && same(row, row + diagonal)) {
                    ++row;
                }
                reached[static_cast<std::size_t>(step)] = row;
                if (row == rows_ && row + diagonal == columns_) {
                    furthest_.push_back(std::move(reached));
                    return edits;
                }
            }
            furthest_.push_back(std::move(reached));
        }
        return -1;
    }

    /// The row that one edit more leads to on a diagonal: a word less from the diagonal above, or
    /// one more from that below.
    int startOf(int edits, int diagonal) const {
        const int left = rowAt(edits - 1, diagonal - 1);
        const int above = rowAt(edits - 1, diagonal + 1);
        return std::max(left, above + 1);
    }

    int rowAt(int edits, int diagonal) const {
        constexpr int nowhere = -1'000'000;
        if (diagonal < -edits || diagonal > edits) {
            return nowhere;
        }
        const int row = furthest_[static_cast<std::size_t>(edits)]
                                 [static_cast<std::size_t>((diagonal + edits) / 2)];
        return row > rows_ || row + diagonal > columns_ ? nowhere : row;
    }

    void walkBack(int edits, std::vector<int>& places) const {
        int row = rows_;
        int column = columns_;
        for (; edits >= 0; --edits) {
            const int diagonal = column - row;
            const int start = edits == 0 ? 0 : startOf(edits, diagonal);
            while (row > start) {
                --row;
                --column;
                places[front_ + static_cast<std::size_t>(row)] = static_cast<int>(front_) + column;
            }
            if (edits > 0) {
                const bool isInsertion = rowAt(edits - 1, diagonal - 1) == start;
                (isInsertion ? column : row) -= 1;
            }
        }
    }

    const Words& before_;
    const Words& after_;
    std::size_t front_ = 0; ///< words that are the same at the beginning, and at the end
    std::size_t back_ = 0;
    int rows_ = 0;
    int columns_ = 0;
    std::vector<std::vector<int>> furthest_;
};

/// Words of the page that come from a variable, with those parts of words that touch it.
struct Group {
    std::size_t first = 0; ///< among the words
    std::size_t last = 0;  ///< behind them
    TextView source;       ///< in the body
};

/// A body with its values, and where they come from.
class ShownBody {
public:
    ShownBody(TextView body, const std::vector<Variable>& variables)
        : shown_(model::withVariables(body, variables)), words_(wordsOf(shown_)) {
        for (const TextView word : words_) {
            ends_.push_back((ends_.empty() ? 0 : ends_.back()) + word.size());
        }
        std::size_t shift = 0; // offsets in the shown text less those in the body; may wrap
        for (const VariableUse& use : model::variableUses(body, variables)) {
            if (use.variable != nullptr) {
                const std::size_t size = use.variable->value.size();
                addGroup(body, use, use.start + shift, size, shift);
                shift += size - use.length;
            }
        }
    }

    const Words& words() const { return words_; }
    const std::vector<Group>& groups() const { return groups_; }

private:
    void addGroup(TextView body, const VariableUse& use, std::size_t start, std::size_t size,
                  std::size_t shift) {
        const auto wordBehind = [this](std::size_t offset) {
            return static_cast<std::size_t>(std::upper_bound(ends_.begin(), ends_.end(), offset)
                                            - ends_.begin());
        };
        Group group{wordBehind(start), 0, {}};
        if (group.first == words_.size() && group.first > 0) {
            --group.first; // an empty value at the end
        }
        group.last =
            std::min(wordBehind(start + std::max<std::size_t>(size, 1) - 1) + 1, words_.size());
        const std::size_t from = group.first == 0 ? 0 : ends_[group.first - 1];
        const std::size_t to = group.last == 0 ? 0 : ends_[group.last - 1];
        std::size_t first = std::min(from, start) - shift;
        const std::size_t last =
            use.start + use.length + (to > start + size ? to - start - size : 0);
        if (!groups_.empty() && groups_.back().last > group.first) { // both are in one word
            group.first = groups_.back().first;
            first = static_cast<std::size_t>(groups_.back().source.data() - body.data());
            groups_.pop_back();
        }
        group.source = body.substr(first, last - first);
        groups_.push_back(group);
    }

    Text shown_;
    Words words_;
    std::vector<std::size_t> ends_; ///< of the words
    std::vector<Group> groups_;
};

/// Finds the words of a group among those of a page between two places; -1 when they are not there.
int findWords(const Words& words, const Group& group, const Words& page, int from, int to) {
    if (group.first == group.last) { // an empty value is all there was
        return from;
    }
    const auto first = words.begin() + static_cast<std::ptrdiff_t>(group.first);
    const auto last = words.begin() + static_cast<std::ptrdiff_t>(group.last);
    const auto end = page.begin() + to;
    const auto found = std::search(page.begin() + from, end, first, last);
    return found == end ? unmatched : static_cast<int>(found - page.begin());
}

} // namespace

std::vector<Variable> variablesOfPage(TextView body, const model::ProjectOptions& options,
                                      TextView edited) {
    const auto plain = model::variablesOf(options);
    constexpr std::chrono::days longAgo(1000);
    const std::chrono::sys_days today = platform::today();
    auto now = model::datedVariables(options, today);
    std::set<std::size_t> changing; // of those that the body uses
    for (const VariableUse& use : model::variableUses(body, now)) {
        const std::size_t index =
            use.variable == nullptr ? 0 : static_cast<std::size_t>(use.variable - now.data());
        if (use.variable != nullptr && now[index] != plain[index]) {
            changing.insert(index);
        }
    }
    if (changing.empty()) {
        return now;
    }
    for (std::chrono::days back(0); back < longAgo; ++back) {
        auto dated = model::datedVariables(options, today - back);
        if (std::all_of(changing.begin(), changing.end(), [&](std::size_t index) {
                return edited.find(dated[index].value) != TextView::npos;
            })) {
            return dated;
        }
    }
    return now;
}

bool differsInValuesOnly(TextView body, const std::vector<Variable>& variables, TextView edited) {
    std::size_t done = 0;
    bool isFirst = true;
    for (const VariableUse& use : model::variableUses(body, variables)) {
        if (use.variable == nullptr) {
            continue;
        }
        const TextView between = body.substr(done, use.start - done);
        const std::size_t found = edited.find(between);
        if (found == TextView::npos || (isFirst && found != 0)) {
            return false;
        }
        edited.remove_prefix(found + between.size());
        done = use.start + use.length;
        isFirst = false;
    }
    return isFirst ? body == edited : edited.ends_with(body.substr(done));
}

std::optional<Text> withVariableNames(TextView body, const std::vector<Variable>& variables,
                                      TextView edited) {
    const ShownBody shown(body, variables);
    if (shown.groups().empty()) {
        return Text(edited);
    }
    const Words page = wordsOf(edited);
    const auto places = WordMatcher(shown.words(), page).match();
    if (!places) {
        return {};
    }
    Text made;
    int done = 0; // words of the page
    const auto copyTo = [&](int place) {
        for (; done < place; ++done) {
            made += page[static_cast<std::size_t>(done)];
        }
    };
    for (const Group& group : shown.groups()) {
        int from = done;
        for (std::size_t word = group.first; word-- > 0;) {
            if ((*places)[word] != unmatched) {
                from = std::max(from, (*places)[word] + 1);
                break;
            }
        }
        int to = static_cast<int>(page.size());
        for (std::size_t word = group.last; word < places->size(); ++word) {
            if ((*places)[word] != unmatched) {
                to = (*places)[word];
                break;
            }
        }
        if (from >= to && group.last > group.first) {
            continue; // it was deleted with what is around it
        }
        const int place = findWords(shown.words(), group, page, from, to);
        if (place == unmatched) {
            return {};
        }
        copyTo(place);
        made += group.source;
        done = place + static_cast<int>(group.last - group.first);
    }
    copyTo(static_cast<int>(page.size()));
    return made;
}

} // namespace importer
