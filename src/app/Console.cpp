#include "app/Console.h"

#include <algorithm>

#include "model/CodePage.h"

namespace app {
namespace {

std::string shown(model::TextView text) {
    std::string utf8 = model::toUtf8(text);
    utf8.erase(std::remove(utf8.begin(), utf8.end(), '\r'), utf8.end());
    return utf8;
}

} // namespace

void Console::result(model::TextView text) {
    out_ << shown(text) << '\n';
}

void Console::message(const model::Message& message) {
    err_ << shown(message.title) << ": " << shown(message.text) << '\n';
}

void Console::failure(std::string_view title, const std::filesystem::path& path,
                      std::string_view reason) {
    err_ << title << ": " << model::utf8Of(path) << ": " << reason << '\n';
}

void Console::failures(std::string_view title, const generate::FileFailures& failures) {
    for (const generate::FileFailure& failed : failures) {
        failure(title, failed.path, failed.reason);
    }
}

bool Console::delivered() {
    return static_cast<bool>(out_.flush());
}

} // namespace app
