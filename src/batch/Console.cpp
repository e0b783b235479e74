#include "batch/Console.h"

#include <algorithm>

#include "platform/Files.h"
#include "text/Unicode.h"

namespace batch {
namespace {

/// Without carriage returns, and with question marks for characters that would steer a terminal.
std::string shown(text::TextView utf8) {
    constexpr char32_t firstLetter = 0xA0; // behind ASCII and the second row of controls
    std::string result;
    result.reserve(utf8.size());
    while (!utf8.empty()) {
        const text::TextView before = utf8;
        const char32_t character = text::takeUtf8(utf8);
        const bool steers = (character < ' ' && character != '\n' && character != '\t')
                            || (character > '~' && character < firstLetter);
        if (!steers) {
            result += before.substr(0, before.size() - utf8.size());
        } else if (character != '\r') {
            result += '?';
        }
    }
    return result;
}

/// A path on one line, so that no name can pass for another message.
std::string shownPath(const std::filesystem::path& path) {
    std::string line = platform::utf8FromPath(path);
    std::replace(line.begin(), line.end(), '\n', '?');
    return shown(line);
}

} // namespace

void Console::result(text::TextView text) {
    out_ << shown(text) << '\n';
}

void Console::message(const text::Message& message) {
    err_ << (message.title.empty() ? "HTML Topicsmith" : shown(message.title)) << ": "
         << shown(message.text) << '\n';
}

void Console::messages(text::TextView lines) {
    err_ << shown(lines) << std::flush;
}

void Console::failure(std::string_view title, const std::filesystem::path& path,
                      std::string_view reason) {
    err_ << title << ": " << shownPath(path) << ": " << shown(reason) << '\n';
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
