#pragma once

#include "web/Symbols.h"

namespace web {

/// Writes words that follow each other in the order of the alphabet: how many letters each shares
/// with the one before, how many others it has, and those. Both lengths are one symbol where they
/// are small.
class FrontCoder {
public:
    explicit FrontCoder(SymbolSplit split) : split_(split) {}

    /// The word before must be there still.
    void append(text::Text& out, text::TextView word);

private:
    SymbolSplit split_;
    text::TextView before_;
};

/// Reads them again.
class FrontDecoder {
public:
    /// The next word; it stays until the next call.
    const text::Text& take(SymbolReader& reader);

private:
    text::Text word_;
};

/// How long a text is for a script, which counts units of UTF-16.
std::size_t scriptLength(text::TextView utf8);

} // namespace web
