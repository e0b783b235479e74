#include "app/OutlineFolds.h"

#include <algorithm>

namespace app {

using model::Topic;

namespace {

std::ptrdiff_t indexOf(int position) {
    return position - 1;
}

} // namespace

void OutlineFolds::inserted(int position) {
    folded_.insert(folded_.begin() + indexOf(position), false);
}

void OutlineFolds::removed(int position) {
    folded_.erase(folded_.begin() + indexOf(position));
}

void OutlineFolds::swapped(int a, int b) {
    std::vector<bool>::swap(folded_[static_cast<std::size_t>(indexOf(a))],
                            folded_[static_cast<std::size_t>(indexOf(b))]);
}

bool OutlineFolds::hasBelow(int position) const {
    return position < outline_.count() && outline_.depth(position + 1) > outline_.depth(position);
}

bool OutlineFolds::isFolded(int position) const {
    return folded_[static_cast<std::size_t>(indexOf(position))] && hasBelow(position);
}

bool OutlineFolds::isAnyFolded() const {
    return std::find(folded_.begin(), folded_.end(), true) != folded_.end();
}

void OutlineFolds::setFolded(int position, bool folded) {
    folded_[static_cast<std::size_t>(indexOf(position))] = folded;
}

void OutlineFolds::setAllFolded(bool folded) {
    std::fill(folded_.begin(), folded_.end(), folded);
}

bool OutlineFolds::reveal(int position) {
    bool any = false;
    int depth = outline_.depth(position);
    for (int above = position - 1; above >= 1 && depth > 1; --above) {
        if (outline_.depth(above) < depth) {
            depth = outline_.depth(above);
            any = any || isFolded(above);
            setFolded(above, false);
        }
    }
    return any;
}

std::vector<bool> OutlineFolds::hidden() const {
    std::vector<bool> hidden;
    hidden.reserve(folded_.size());
    int foldedDepth = model::maxDepth + 1; // of the folded topic that the rows lie below
    for (int position = 1; position <= outline_.count(); ++position) {
        const int depth = outline_.depth(position);
        if (isFiltered()) {
            hidden.push_back(!matches(outline_.at(position)));
            continue;
        }
        hidden.push_back(depth > foldedDepth);
        if (!hidden.back()) {
            foldedDepth = isFolded(position) ? depth : model::maxDepth + 1;
        }
    }
    return hidden;
}

bool OutlineFolds::matches(const Topic& topic) const {
    const auto fields = {&Topic::title,         &Topic::fileName, &Topic::contextId,
                         &Topic::contextNumber, &Topic::keywords, &Topic::status};
    return std::any_of(fields.begin(), fields.end(), [&](const auto field) {
        return text::lowerCase(topic.*field).find(filter_) != text::Text::npos;
    });
}

} // namespace app
