#include "model/FieldReader.h"

#include <algorithm>
#include <utility>

#include "text/TextLines.h"

namespace model {

using text::Text;
using text::TextView;
using text::trim;
using text::withLineBreaks;

FieldReader::FieldReader(text::Bytes file) : file_(std::move(file.value)) {
    if (file_.find('\r') == std::string::npos) {
        file_ = withLineBreaks(file_);
    }
}

TextView FieldReader::next() {
    skipBlanks();
    fieldStart_ = position_;
    const bool quoted = !atEnd() && file_[position_] == '"';
    cutInQuotes_ = false;
    const TextView field = quoted ? quotedField() : plainField();
    cutAtEnd_ = atEnd();
    skipSeparator();
    return field;
}

int FieldReader::line() const {
    int line = 1;
    for (std::size_t i = 0; i < fieldStart_; ++i) {
        const bool secondOfPair = file_[i] == '\n' && i > 0 && file_[i - 1] == '\r';
        line += file_[i] == '\r' || (file_[i] == '\n' && !secondOfPair) ? 1 : 0;
    }
    return line;
}

TextView FieldReader::quotedField() {
    const std::size_t start = position_ + 1;
    const std::size_t closingQuote = file_.find('"', start);
    cutInQuotes_ = closingQuote == std::string::npos;
    const std::size_t end = std::min(closingQuote, file_.size());
    position_ = std::min(end + 1, file_.size());
    skipBlanks();
    return TextView(file_).substr(start, end - start);
}

TextView FieldReader::plainField() {
    const TextView rest = TextView(file_).substr(position_);
    const auto* end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return c == ',' || c == '\r'; });
    const TextView field(rest.begin(), end);
    position_ += field.size();
    return trim(field);
}

void FieldReader::skipBlanks() {
    position_ = std::min(file_.find_first_not_of(' ', position_), file_.size());
}

void FieldReader::skipSeparator() {
    if (atEnd()) {
        return;
    }
    if (file_[position_] == ',') {
        ++position_;
    } else if (file_[position_] == '\r') {
        ++position_;
        if (!atEnd() && file_[position_] == '\n') {
            ++position_;
        }
    }
}

} // namespace model
