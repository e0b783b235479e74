#pragma once

#include <algorithm>
#include <string_view>

namespace workshop {

/// Tells in which line places of a text are. Each place is at or behind the one before it.
class LineCounter {
public:
    /// The text must outlive this.
    explicit LineCounter(std::string_view text) : text_(text) {}

    /// From 1.
    int at(std::size_t offset) {
        const std::size_t end = std::clamp(offset, counted_, text_.size());
        line_ +=
            static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(counted_),
                                        text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
        counted_ = end;
        return line_;
    }

private:
    std::string_view text_;
    std::size_t counted_ = 0;
    int line_ = 1;
};

} // namespace workshop
