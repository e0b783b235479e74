#pragma once

#include "text/CodePage.h"

namespace model {

/// Takes the fields of a project file one after the other: comma-separated values over lines, where
/// a field in double quotes may run over several lines.
class FieldReader {
public:
    /// A file that holds a carriage return anywhere is one of ours: CR LF or a lone CR ends a line
    /// and a bare LF is text. A file without any was converted by another tool: its LFs are line
    /// ends, inside texts too, and become CR LF.
    explicit FieldReader(text::Bytes file);

    FieldReader(const FieldReader&) = delete;
    FieldReader& operator=(const FieldReader&) = delete;

    /// The next field as its bytes stand there, without the quotes or without the blanks around it;
    /// empty when nothing is left. Valid as long as the reader.
    text::TextView next();

    /// Nothing is left to read.
    bool atEnd() const { return position_ >= file_.size(); }

    /// Not even the separator that ends a field stood behind the last one: the file was cut in it
    /// or right behind it.
    bool cutAtEnd() const { return cutAtEnd_; }

    /// The closing quote of the last field was missing; the field went on to the end of the file.
    bool cutInQuotes() const { return cutInQuotes_; }

    /// The line, from 1, in which the last field began.
    int line() const;

private:
    text::TextView quotedField();
    text::TextView plainField();
    void skipBlanks();
    void skipSeparator();

    std::string file_;
    std::size_t position_ = 0;
    std::size_t fieldStart_ = 0;
    bool cutAtEnd_ = false;
    bool cutInQuotes_ = false;
};

} // namespace model
