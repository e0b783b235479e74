#include "model/RecentFiles.h"

#include <algorithm>
#include <vector>

#include "platform/Files.h"

namespace model {

using text::upperCase;

namespace fs = std::filesystem;

namespace {

/// Where each character begins, and the end at last. Bytes that are not UTF-8 are taken as they
/// come: a path need not be text.
std::vector<std::size_t> characterStarts(std::string_view utf8) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const bool continues = (static_cast<unsigned char>(utf8[i]) & 0xC0U) == 0x80U;
        if (!continues) {
            starts.push_back(i);
        }
    }
    starts.push_back(utf8.size());
    return starts;
}

} // namespace

std::string shortenPath(const fs::path& path) {
    constexpr std::size_t wholeLength = 40;
    constexpr std::size_t nameLimit = 34;
    constexpr const char* ellipsis = "\u2026";
    std::string text = platform::utf8FromPath(path);
    const std::vector<std::size_t> starts = characterStarts(text);
    const std::size_t length = starts.size() - 1;
    if (length <= wholeLength) {
        return text;
    }
    const auto firstCharacters = [&](std::size_t count) { return text.substr(0, starts[count]); };
    const auto separatorBefore = [&](std::size_t character) {
        while (character > 0 && text[starts[character - 1]] != '/'
               && text[starts[character - 1]] != '\\') {
            --character;
        }
        return character; // one after its own place; 0 for none
    };
    const std::size_t last = separatorBefore(length);
    if (last == 0) {
        return firstCharacters(38) + ellipsis;
    }
    const std::size_t before = separatorBefore(last - 1);
    std::size_t from = last - 1;
    std::size_t to = length;
    if (length - from >= nameLimit) {
        to = from + 32;
    } else if (before > 0 && length - (before - 1) < nameLimit) {
        from = before - 1;
    }
    return firstCharacters(3) + ellipsis + text.substr(starts[from], starts[to] - starts[from]);
}

RecentFiles::Entry RecentFiles::entryOf(const fs::path& path) {
    std::string caption = shortenPath(path);
    return {path, caption, upperCase(caption)};
}

std::deque<RecentFiles::Entry>::iterator RecentFiles::find(const Entry& entry) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [&entry](const Entry& other) { return other.key == entry.key; });
}

void RecentFiles::add(const fs::path& path) {
    Entry entry = entryOf(path);
    if (const auto known = find(entry); known != entries_.end()) {
        entries_.erase(known);
    }
    entries_.push_front(std::move(entry));
    if (count() > maxFiles) {
        entries_.pop_back();
    }
}

void RecentFiles::remove(const fs::path& path) {
    if (const auto known = find(entryOf(path)); known != entries_.end()) {
        entries_.erase(known);
    }
}

} // namespace model
