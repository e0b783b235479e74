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

ProjectFormat FieldReader::readHeader() {
    constexpr TextView byteOrderMark = "\xEF\xBB\xBF";
    if (next() == projectFileHeader) {
        return ProjectFormat::one;
    }
    position_ = file_.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    doublesQuotes_ = trim(nextLine()) == formatTwoHeader;
    return doublesQuotes_ ? ProjectFormat::two : ProjectFormat::unknown;
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

TextView FieldReader::nextLine() {
    fieldStart_ = position_;
    const std::size_t end = std::min(file_.find('\r', position_), file_.size());
    position_ = end;
    cutInQuotes_ = false;
    cutAtEnd_ = atEnd();
    skipSeparator();
    return TextView(file_).substr(fieldStart_, end - fieldStart_);
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
    std::size_t from = start; // where the part begins that is not in unquoted_
    std::size_t quote = file_.find('"', start);
    unquoted_.clear();
    while (doublesQuotes_ && quote < file_.size() - 1 && file_[quote + 1] == '"') {
        unquoted_.append(file_, from, quote + 1 - from);
        from = quote + 2;
        quote = file_.find('"', from);
    }
    cutInQuotes_ = quote == std::string::npos;
    const std::size_t end = std::min(quote, file_.size());
    position_ = std::min(end + 1, file_.size());
    skipBlanks();
    if (from == start) {
        return TextView(file_).substr(start, end - start);
    }
    return unquoted_.append(file_, from, end - from);
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
