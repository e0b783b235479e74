#pragma once

#include <filesystem>
#include <system_error>

#include "model/Text.h"

/// Text files of other programs.
namespace model {

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

/// The text of a file in the code page. A byte order mark is dropped; behind one, UTF-8 or UTF-16
/// is converted, and characters that the code page lacks become decimal references.
Text decodedText(std::string bytes);

/// Reads a file so. `text` is empty after a failure.
std::error_code readTextFile(const std::filesystem::path& path, Text& text);

} // namespace model
