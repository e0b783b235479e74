#include "web/PlainTexts.h"

#include "web/SiteMap.h"

namespace web {

/// Makes a text that nobody has begun; false for any other.
bool PlainTexts::begin(std::size_t position) {
    std::atomic<State>& state = states_[position];
    State none = State::none;
    if (!state.compare_exchange_strong(none, State::begun)) {
        return false;
    }
    try {
        texts_[position] = plainText(outline_.at(static_cast<int>(position)).body);
    } catch (...) { // nobody shall wait for it
        state = State::none;
        state.notify_one();
        throw;
    }
    state = State::made;
    state.notify_one();
    return true;
}

void PlainTexts::make(std::size_t position) {
    while (states_[position] != State::made && !begin(position)) {
        states_[position].wait(State::begun);
    }
}

void PlainTexts::makeFromEnd(const std::vector<std::size_t>& positions) {
    for (auto at = positions.rbegin(); at != positions.rend() && begin(*at); ++at) {
    }
}

} // namespace web
