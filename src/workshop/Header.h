#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace workshop {

/// What a line of a C header says about contexts.
struct HeaderLine {
    std::string name; ///< of a number
    std::uint32_t number = 0;
    std::string include; ///< another file; then there is no name
};

/// Reads C headers line by line. What defines no number is passed over, and so are comments, also
/// those of many lines.
class HeaderReader {
public:
    /// Nothing for a line without a number or a file.
    std::optional<HeaderLine> take(std::string_view line);

private:
    std::string withoutComments(std::string_view line);

    bool inComment_ = false;
};

} // namespace workshop
