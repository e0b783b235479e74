#pragma once

#include <filesystem>
#include <system_error>

#include "text/Text.h"

/// Text files of other programs.
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

/// What becomes of characters that the code page lacks.
enum class Foreign { references, questionMarks };

/// The text of a file in the code page. A byte order mark is dropped; behind one, UTF-8 or UTF-16
/// is converted.
Text decodedText(std::string bytes, Foreign foreign);

/// Reads a file so. `text` is empty after a failure.
std::error_code readTextFile(const std::filesystem::path& path, Foreign foreign, Text& text);

} // namespace text
