#pragma once

#include <optional>
#include <string>

#include "help/ChmFile.h"

namespace help {

/// The table of what a help leads to, to which other tables refer. Texts are in the help's code
/// page.
class TopicReader {
public:
    explicit TopicReader(const ChmFile& file);

    std::size_t size() const;

    /// As in "html/a.htm#b"; nothing where the table is damaged.
    std::optional<std::string> address(std::size_t topic) const;

    std::string title(std::size_t topic) const; ///< empty for none

private:
    std::string topics_, addresses_, texts_, strings_;
};

} // namespace help
