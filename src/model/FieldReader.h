#pragma once

#include "model/ProjectFormat.h"

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

    /// Takes what the file begins with and goes by the rules of that format from here on: in format
    /// 2 a byte order mark may stand in front, and a double quote within quotes is doubled. To be
    /// called first, if at all.
    ProjectFormat readHeader();

    /// The next field as its bytes stand there, without the quotes or without the blanks around it;
    /// empty when nothing is left. Valid until the next one is read.
    text::TextView next();

    /// The rest of the line as it stands there, whatever it holds. Valid as long as the reader.
    text::TextView nextLine();

    /// Nothing is left to read.
    bool atEnd() const { return position_ >= file_.size(); }

    /// Not even the separator that ends a field or line stood behind the last one: the file was cut
    /// in it or right behind it.
    bool cutAtEnd() const { return cutAtEnd_; }

    /// The closing quote of the last field was missing; the field went on to the end of the file.
    bool cutInQuotes() const { return cutInQuotes_; }

    /// The line, from 1, in which the last field or line began.
    int line() const;

private:
    text::TextView quotedField();
    text::TextView plainField();
    void skipBlanks();
    void skipSeparator();

    std::string file_;
    std::string unquoted_; ///< a field with doubled quotes, as it was meant
    bool doublesQuotes_ = false;
    std::size_t position_ = 0;
    std::size_t fieldStart_ = 0;
    bool cutAtEnd_ = false;
    bool cutInQuotes_ = false;
};

} // namespace model
