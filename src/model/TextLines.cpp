#include "model/TextLines.h"

#include <algorithm>

#include "model/CodePage.h"
#include "platform/Files.h"

namespace model {

bool LineReader::next(TextView& line) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t end = std::min(rest_.find_first_of(lineBreak), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (rest_.starts_with(lineBreak)) {
        rest_.remove_prefix(lineBreak.size());
    } else if (!rest_.empty()) {
        rest_.remove_prefix(1);
    }
    return true;
}

Text decodedText(std::string bytes) {
    const TextView all = bytes;
    if (all.starts_with("\xEF\xBB\xBF")) {
        return htmlFromUtf8(all.substr(3));
    }
    if (all.starts_with("\xFF\xFE") || all.starts_with("\xFE\xFF")) {
        return htmlFromUtf16(all.substr(2), all.front() == '\xFE');
    }
    return bytes;
}

std::error_code readTextFile(const std::filesystem::path& path, Text& text) {
    std::string bytes;
    const std::error_code error = platform::readFile(path, bytes);
    text = decodedText(std::move(bytes));
    return error;
}

} // namespace model
