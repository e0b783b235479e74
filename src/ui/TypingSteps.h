#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

namespace ui {

/// Cuts what is done in a text box into steps, each to be taken back at once: a word with the
/// blanks behind it, what was typed between two pauses, what was deleted, what was pasted.
class TypingSteps {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::milliseconds pause{1500};

    /// Whether the letters that are about to be entered at a place begin a step.
    bool entering(std::size_t place, std::u16string_view letters, Time now);

    /// Whether what has been deleted begins a step.
    bool deleting(Time now);

    /// What comes next begins one.
    void end() { last_ = Last::other; }

private:
    enum class Last { other, letter, blank, deletion };

    bool goesOn(Time now);

    Last last_ = Last::other;
    std::size_t place_ = 0; ///< behind what was entered last
    Time time_;
};

} // namespace ui
