#pragma once

#include "editor/Passage.h"
#include "text/HtmlReader.h"

namespace editor {

/// Takes the tags of a body with the places where they stand. Comments and scripts are passed over.
class TagReader {
public:
    /// The text must outlive this.
    explicit TagReader(TextView text) : text_(text), reader_(text), ends_(text) {}

    bool next() {
        while (reader_.next()) {
            if (!reader_.isText()) {
                const std::size_t mark = reader_.closes() ? 2 : 1;
                start_ = reader_.offset() - mark;
                const std::size_t end = ends_.of(start_);
                end_ = end == TextView::npos ? text_.size() : end + 1;
                name_ = reader_.lowerName();
                return true;
            }
        }
        return false;
    }

    std::size_t start() const { return start_; }
    std::size_t end() const { return end_; } ///< behind the tag
    const Text& name() const { return name_; }
    bool closes() const { return reader_.closes(); }
    TextView tag() const { return text_.substr(start_, end_ - start_); }
    const text::HtmlReader& reader() const { return reader_; }

private:
    TextView text_;
    text::HtmlReader reader_;
    text::TagEnds ends_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    Text name_;
};

} // namespace editor
