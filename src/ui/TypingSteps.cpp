#include "ui/TypingSteps.h"

#include <utility>

namespace ui {

bool TypingSteps::goesOn(Time now) {
    return now - std::exchange(time_, now) < pause;
}

bool TypingSteps::entering(std::size_t place, std::u16string_view letters, Time now) {
    const bool one = letters.size() == 1;
    const bool blank = one && (letters[0] == u' ' || letters[0] == u'\t');
    const bool joins = goesOn(now) && place == place_ && one
                       && (last_ == Last::letter || (blank && last_ == Last::blank));
    last_ = !one ? Last::other : blank ? Last::blank : Last::letter;
    place_ = place + letters.size();
    return !joins;
}

bool TypingSteps::deleting(Time now) {
    const bool joins = goesOn(now) && last_ == Last::deletion;
    last_ = Last::deletion;
    return !joins;
}

} // namespace ui
