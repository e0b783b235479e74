#include "batch/Console.h"

#include <algorithm>

#include "platform/Files.h"

namespace batch {
namespace {

/// Without carriage returns, and with question marks for characters that would steer a terminal.
std::string shown(std::string utf8) {
    std::erase(utf8, '\r');
    std::replace_if(
        utf8.begin(), utf8.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\n' && c != '\t'; }, '?');
    return utf8;
}

std::string shownText(text::TextView text) {
    return shown(text::Text(text));
}

/// A path on one line, so that no name can pass for another message.
std::string shownPath(const std::filesystem::path& path) {
    std::string line = platform::utf8FromPath(path);
    std::replace(line.begin(), line.end(), '\n', '?');
    return shown(std::move(line));
}

} // namespace

void Console::result(text::TextView text) {
    out_ << shownText(text) << '\n';
}

void Console::message(const text::Message& message) {
    err_ << (message.title.empty() ? "HTML Topicsmith" : shownText(message.title)) << ": "
         << shownText(message.text) << '\n';
}

void Console::failure(std::string_view title, const std::filesystem::path& path,
                      std::string_view reason) {
    err_ << title << ": " << shownPath(path) << ": " << reason << '\n';
}

void Console::failures(std::string_view title, const model::FileFailures& failures) {
    for (const model::FileFailure& failed : failures) {
        failure(title, failed.path, failed.reason);
    }
}

bool Console::delivered() {
    return static_cast<bool>(out_.flush());
}

} // namespace batch
