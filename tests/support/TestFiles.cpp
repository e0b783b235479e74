#include "support/TestFiles.h"

#include <gtest/gtest.h>
#include <random>

#include "platform/Files.h"

namespace test {

namespace fs = std::filesystem;

Path::operator std::string() const {
    return platform::utf8FromPath(*this);
}

Path Path::operator/(const fs::path& name) const {
    return static_cast<const fs::path&>(*this) / name;
}

Path sourceFolder() {
    return platform::pathFromUtf8(TOPICSMITH_SOURCE_FOLDER);
}

Path programFolder() {
    return platform::pathFromUtf8(TOPICSMITH_PROGRAM_FOLDER);
}

TemporaryFolder::TemporaryFolder() {
    const fs::path parent = fs::temp_directory_path();
    std::random_device random;
    do {
        path_ = parent / ("topicsmith-test-" + std::to_string(random()));
    } while (!fs::create_directory(path_)); // false for one that is there
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

std::size_t TemporaryFolder::fileCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(path_), fs::directory_iterator()));
}

std::string bytesOf(const fs::path& path) {
    std::string bytes;
    const std::error_code error = platform::readFile(path, bytes);
    EXPECT_FALSE(error) << path << ": " << error.message();
    return bytes;
}

void writeBytes(const fs::path& path, std::string_view bytes) {
    const std::error_code error = platform::writeFile(path, bytes);
    ASSERT_FALSE(error) << path << ": " << error.message();
}

std::string bitmap(int width, int height) {
    constexpr int headSize = 62; // with the two colours
    const int bodySize = 4 * height;
    std::string bytes = "BM";
    const auto number = [&bytes](int value, int size) {
        for (int i = 0; i < size; ++i) {
            bytes += static_cast<char>(value >> 8 * i & 0xFF);
        }
    };
    for (const int value : {headSize + bodySize, 0, headSize, 40, width, height}) {
        number(value, 4);
    }
    number(1, 2); // plane
    number(1, 2); // bit for each pixel
    for (const int value : {0, bodySize, 0, 0, 2, 2, 0, 0xFFFFFF}) {
        number(value, 4);
    }
    return bytes + std::string(static_cast<std::size_t>(bodySize), '\0');
}

bool makeLink(const fs::path& target, const fs::path& link) {
    std::error_code error;
    fs::create_symlink(target, link, error);
    return !error;
}

text::Text lines(std::initializer_list<text::TextView> texts) {
    text::Text joined;
    for (const text::TextView text : texts) {
        text::appendLine(joined, text);
    }
    return joined;
}

model::Topic topic(int depth, text::Text title, text::Text fileName, text::Text body) {
    model::Topic topic;
    topic.level = model::levelText(depth);
    topic.title = std::move(title);
    topic.fileName = std::move(fileName);
    topic.body = std::move(body);
    return topic;
}

model::TopicOutline flatOutline(int count) {
    model::TopicOutline outline;
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        outline.append(topic(1, "Topic " + number, "t" + number + ".htm"));
    }
    return outline;
}

model::TopicOutline outlineOf(std::initializer_list<model::Topic> topics) {
    model::TopicOutline outline;
    for (const model::Topic& each : topics) {
        outline.append(each);
    }
    return outline;
}

std::string projectFile(const model::TopicOutline& outline, const model::ProjectOptions& options) {
    return model::formatProject(outline, options).value;
}

model::ParsedProject parsed(std::string file) {
    return model::parseProject(text::Bytes(std::move(file)));
}

} // namespace test
