#pragma once

#include "help/HelpPage.h"

namespace help {

/// What a reader looks for in the pages of a help.
class HelpQuestion {
public:
    /// Words with blanks between; several in double quotes count as they stand.
    explicit HelpQuestion(std::string_view utf8);

    const std::vector<std::string>& words() const { return words_; }

    /// 0 when the page lacks one of the words; the higher the better otherwise. A page whose title
    /// holds them comes before all others.
    int score(const HelpPage& page) const;

private:
    std::vector<std::string> words_; ///< as searchable() makes them
};

} // namespace help
