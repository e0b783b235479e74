#pragma once

#include <algorithm>

#include <QString>

#include "text/Text.h"

namespace ui {

/// Goes through the raw text of a document and the text of its box at the same time, forward only.
/// Positions count units of the toolkit, with one for a line break; offsets count bytes of the
/// box's text, with two for it.
class PositionCount {
public:
    /// The text has to stay.
    explicit PositionCount(const QString& raw) : raw_(raw) {}

    /// An offset within a character or line break means the place before it.
    int positionAt(std::size_t offset) {
        while (position_ < raw_.size() && offset_ + next().bytes <= offset) {
            step();
        }
        return static_cast<int>(std::min(position_, raw_.size()));
    }

    std::size_t offsetAt(int position) {
        while (position_ < std::min<qsizetype>(position, raw_.size())) {
            step();
        }
        return offset_;
    }

private:
    struct Character {
        qsizetype units;
        std::size_t bytes;
    };

    Character next() const {
        const QChar unit = raw_[position_];
        if (unit == QChar::ParagraphSeparator) {
            return {1, text::lineBreak.size()};
        }
        if (unit.isHighSurrogate()) {
            return {2, 4};
        }
        return {1, unit.unicode() < 0x80 ? 1U : unit.unicode() < 0x800 ? 2U : 3U};
    }

    void step() {
        const Character character = next();
        position_ += character.units;
        offset_ += character.bytes;
    }

    const QString& raw_;
    qsizetype position_ = 0;
    std::size_t offset_ = 0;
};

} // namespace ui
