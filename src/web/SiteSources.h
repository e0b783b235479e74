#pragma once

#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "generate/OwnFiles.h"
#include "text/Text.h"

namespace web {

/// The author's own files that pages and style sheets name.
class SiteSources {
public:
    /// As for the files.
    SiteSources(const std::filesystem::path& projectFile, std::filesystem::path programFolder)
        : files_(projectFile, std::move(programFolder)) {}

    /// Wants a file, by its place from the project's folder, to be in the site. Returns the place
    /// where it will be, which may differ in letter case; nothing when there is no such file.
    std::optional<text::Text> want(const text::Text& place);

    /// What was asked for, and what want() returned; nothing is an empty text.
    struct Asked {
        const text::Text& place;
        const std::optional<text::Text>& found;
    };
    /// What was asked for since the last call, each place once.
    std::vector<Asked> takeAsked();

    /// How often somebody has asked; what was asked within a range counts as asked again.
    std::size_t askedCount() const { return questions_.size(); }
    void repeat(std::size_t from, std::size_t to);

    /// All that is wanted, with what those files name themselves: places, and files to be read.
    const std::map<text::Text, std::filesystem::path>& collect();

    /// What a wanted file holds; empty when it cannot be read.
    text::Text contentsOf(const text::Text& place) const;

private:
    void follow(const text::Text& place);

    generate::OwnFiles files_;
    std::map<text::Text, std::optional<text::Text>> asked_;
    std::map<text::Text, std::filesystem::path> wanted_;
    std::deque<text::Text> unread_;
    using Answer = std::pair<const text::Text, std::optional<text::Text>>;
    std::vector<const Answer*> questions_;
    std::size_t taken_ = 0; ///< of them
};

} // namespace web
