#pragma once

#include "text/Text.h"

namespace tools {

using text::Text;
using text::TextView;

/// Checks texts together with the author. Lives for one command.
class SpellChecker {
public:
    enum class Outcome {
        checked,
        cancelled, ///< the author wants no more; what was corrected until then stays
        failed     ///< the text is as it was
    };

    SpellChecker() = default;
    virtual ~SpellChecker() = default;
    SpellChecker(const SpellChecker&) = delete;
    SpellChecker& operator=(const SpellChecker&) = delete;

    /// Corrects a text, which is not empty. `place` tells the author which one it is.
    virtual Outcome check(Text& text, TextView place) = 0;

    /// To be called when all is checked; false when that failed. Once is enough.
    virtual bool finish() { return true; }
};

} // namespace tools
