#include "text/TextLines.h"

#include <algorithm>

namespace text {

bool LineReader::next(TextView& line) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t end = std::min(rest_.find_first_of(lineBreak), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (rest_.starts_with(lineBreak)) {
        rest_.remove_prefix(lineBreak.size());
    } else if (!rest_.empty()) {
        rest_.remove_prefix(1);
    }
    return true;
}

bool hasOtherLineEnds(TextView text) {
    for (std::size_t i = 0; (i = text.find_first_of(lineBreak, i)) != TextView::npos;) {
        if (!text.substr(i).starts_with(lineBreak)) {
            return true;
        }
        i += lineBreak.size();
    }
    return false;
}

Text withLineBreaks(TextView text) {
    Text result;
    result.reserve(text.size()
                   + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
    LineReader lines(text);
    for (TextView line; lines.next(line);) {
        const bool ended = line.data() + line.size() < text.data() + text.size();
        append(result, line, ended ? lineBreak : TextView());
    }
    return result;
}

} // namespace text
