#pragma once

#include <filesystem>
#include <string>

#include "model/ProjectFile.h"

/// What the tests of all folders need.
namespace test {

/// A path that is taken for text, in UTF-8, where text is wanted.
class Path : public std::filesystem::path {
public:
    using std::filesystem::path::path;
    Path(std::filesystem::path other) : std::filesystem::path(std::move(other)) {}
    operator std::string() const;
    Path operator/(const std::filesystem::path& name) const;
};

/// A folder of the running test's own, empty at first and removed at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const Path& path() const { return path_; }
    Path operator/(const std::filesystem::path& name) const { return path_ / name; }

    std::size_t fileCount() const;

private:
    Path path_;
};

/// The project's own folder, for what the tests read of it, and the one of the programs that were
/// built. Only this file's implementation is told where they are: paths on every compiler's command
/// line keep a compiler cache from helping in another checkout.
Path sourceFolder();
Path programFolder();

/// A file's bytes; fails the test if it cannot be read.
std::string bytesOf(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::string_view bytes);

/// A black picture in BMP, at most 32 pixels wide.
std::string bitmap(int width, int height);

/// False where the system, or this person, cannot make links.
bool makeLink(const std::filesystem::path& target, const std::filesystem::path& link);

/// Lines joined with CR LF, each ended by it.
text::Text lines(std::initializer_list<text::TextView> texts);

model::Topic topic(int depth, text::Text title, text::Text fileName, text::Text body = "text");

/// Topics 1 to `count` of level 1, titled "Topic 1" and so on, in pages t1.htm and so on.
model::TopicOutline flatOutline(int count);

model::TopicOutline outlineOf(std::initializer_list<model::Topic> topics);

// A project as its file holds it.
std::string projectFile(const model::TopicOutline& outline, const model::ProjectOptions& options);
model::ParsedProject parsed(std::string file);

} // namespace test
