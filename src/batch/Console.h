#pragma once

#include <filesystem>
#include <ostream>

#include "model/FileFailure.h"
#include "text/Message.h"

namespace batch {

/// What the batch program says: results on one stream, messages on the other, both in UTF-8 and
/// with the system's line ends.
class Console {
public:
    /// The streams stay the caller's.
    Console(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

    std::ostream& out() { return out_; }
    std::ostream& err() { return err_; }

    /// A result, followed by a line end.
    void result(text::TextView text);

    /// "title: text".
    void message(const text::Message& message);

    /// Lines that end with line feeds and say themselves what they are about.
    void messages(text::TextView lines);

    /// Names a file and what went wrong with it, under the title of the command.
    void failure(std::string_view title, const std::filesystem::path& path,
                 std::string_view reason);
    void failures(std::string_view title, const model::FileFailures& failures);

    /// Whether everything said on the result stream has arrived.
    bool delivered();

private:
    std::ostream& out_;
    std::ostream& err_;
};

} // namespace batch
