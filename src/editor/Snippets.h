#pragma once

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "editor/Passage.h"

namespace editor {

/// Texts with names, in a file beside the project: a line with a name between brackets, and the
/// text in the lines below it. The file is UTF-8, so that people can write it, too.
class Snippets {
public:
    static constexpr const char* fileName = "snippets.txt";

    /// A file that is not there holds none. It is read each time, for others may write it.
    explicit Snippets(std::filesystem::path file) : file_(std::move(file)) {}

    std::vector<Text> names() const; ///< in order
    std::optional<Text> text(TextView name) const;

    /// Under a name of one line; what had it before is replaced.
    std::error_code keep(TextView name, TextView text);
    std::error_code remove(TextView name);

private:
    struct Snippet {
        Text name;
        Text text;
    };
    std::error_code read(std::vector<Snippet>& snippets) const;
    std::error_code change(TextView name, std::optional<TextView> text);

    std::filesystem::path file_;
};

/// Puts a snippet in the place of the selection; where it has a "|" alone between two blank places,
/// "{|}", the selection comes there and stays selected.
Passage insertSnippet(Passage passage, TextView snippet);

} // namespace editor
