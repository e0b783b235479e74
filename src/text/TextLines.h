#pragma once

#include "text/Text.h"

/// The lines of a text.
namespace text {

/// Takes the lines of a text one after the other, without their ends: CR LF, LF or CR. The last
/// line may have none.
class LineReader {
public:
    /// The text must outlive the reader and the lines taken.
    explicit LineReader(TextView text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }

    /// False at the end.
    bool next(TextView& line);

private:
    TextView rest_;
};

/// Whether some line ends are not CR LF.
bool hasOtherLineEnds(TextView text);

/// With CR LF for each line end.
Text withLineBreaks(TextView text);

} // namespace text
