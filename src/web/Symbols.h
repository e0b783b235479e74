#pragma once

#include "text/Text.h"

/// Numbers as text in scripts. A symbol is one of the 93 characters of ASCII that can be seen and
/// that a script's quotes hold as they are.
namespace web {

inline constexpr std::size_t symbolCount = 93;

/// How many symbols stand alone for a small number, and with how many a number of two begins; all
/// others begin one of three. The script reads the same.
struct SymbolSplit {
    std::size_t alone = 0;
    std::size_t pairs = 0;

    /// The numbers below this need no more than so many symbols.
    constexpr std::size_t belowTwo() const { return alone; }
    constexpr std::size_t belowThree() const { return alone + pairs * symbolCount; }
    constexpr std::size_t end() const {
        return belowThree() + (symbolCount - alone - pairs) * symbolCount * symbolCount;
    }
};

inline void appendSymbol(text::Text& out, std::size_t symbol) {
    constexpr std::size_t quote = '"' - ' ';
    constexpr std::size_t backslash = '\\' - ' ';
    symbol += symbol >= quote ? 1 : 0;
    symbol += symbol >= backslash ? 1 : 0;
    out += static_cast<char>(' ' + symbol);
}

/// A number below the split's end.
inline void appendNumber(text::Text& out, std::size_t number, const SymbolSplit& split) {
    if (number < split.belowTwo()) {
        appendSymbol(out, number);
    } else if (number < split.belowThree()) {
        number -= split.belowTwo();
        appendSymbol(out, split.alone + number / symbolCount);
        appendSymbol(out, number % symbolCount);
    } else {
        number -= split.belowThree();
        appendSymbol(out, split.alone + split.pairs + number / (symbolCount * symbolCount));
        appendSymbol(out, number / symbolCount % symbolCount);
        appendSymbol(out, number % symbolCount);
    }
}

/// Takes numbers and letters off such a text. Behind its end, everything is 0.
class SymbolReader {
public:
    SymbolReader(text::TextView text, const SymbolSplit& split) : text_(text), split_(split) {}

    bool atEnd() const { return text_.empty(); }

    std::size_t takeSymbol() {
        constexpr std::size_t quote = '"' - ' ';
        constexpr std::size_t backslash = '\\' - ' ';
        if (text_.empty()) {
            return 0;
        }
        const auto code = static_cast<std::size_t>(static_cast<unsigned char>(text_.front()) - ' ');
        text_.remove_prefix(1);
        return code - (code > quote ? 1 : 0) - (code > backslash ? 1 : 0);
    }

    std::size_t takeNumber() {
        const std::size_t first = takeSymbol();
        if (first < split_.alone) {
            return first;
        }
        const std::size_t second = takeSymbol();
        if (first < split_.alone + split_.pairs) {
            return split_.belowTwo() + (first - split_.alone) * symbolCount + second;
        }
        return split_.belowThree()
               + ((first - split_.alone - split_.pairs) * symbolCount + second) * symbolCount
               + takeSymbol();
    }

    /// As many as a script counts.
    text::TextView takeLetters(std::size_t scriptUnits);

private:
    text::TextView text_;
    SymbolSplit split_;
};

} // namespace web
