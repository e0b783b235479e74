#include "web/SiteList.h"

#include <algorithm>
#include <charconv>

#include "model/PagePath.h"
#include "platform/Files.h"
#include "platform/FolderFacts.h"

namespace web {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

constexpr TextView title = "The files of this web site, which HTML Topicsmith writes and removes";

/// Takes a number and the tab behind it off the front of a line; false when there is none.
template <typename Number>
bool takeNumber(TextView& line, Number& number) {
    const char* end = line.data() + line.size();
    const auto [rest, error] = std::from_chars(line.data(), end, number);
    if (error != std::errc() || rest == end || *rest != '\t') {
        return false;
    }
    line.remove_prefix(static_cast<std::size_t>(rest - line.data()) + 1);
    return true;
}

} // namespace

SiteList::SiteList(fs::path folder)
    : isRead_(std::async([this, place = std::move(folder)] { read(place); })) {}

void SiteList::read(const fs::path& folder) {
    const bool isThere = !platform::readFile(model::pagePath(folder, listPlace), list_);
    isForeign_ = isThere && !list_.starts_with(title);
    if (isThere && !isForeign_) {
        readLines();
        lookAtFiles(folder);
    }
}

/// The list may come from anywhere: it must not name files outside of the folder.
void SiteList::readLines() {
    for (TextView list = list_; !list.empty();) {
        const std::size_t end = std::min(list.find('\n'), list.size());
        TextView line = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        SiteEntry entry;
        if (takeNumber(line, entry.hash) && takeNumber(line, entry.size)
            && takeNumber(line, entry.time) && model::pageNameFault(line).empty()
            && numbers_.numberOf(line).isNew) {
            lines_.push_back({line, entry});
        }
    }
}

void SiteList::lookAtFiles(const fs::path& folder) {
    const platform::FolderFacts files(folder);
    Text place;
    for (Line& line : lines_) {
        place = line.place;
        const auto facts = files.of(place);
        line.isAsWritten =
            facts && facts->size == line.entry.size && facts->written.count() == line.entry.time;
    }
}

const SiteList::Line* SiteList::find(TextView place) const {
    const auto number = numbers_.find(place);
    return number ? &lines_[*number] : nullptr;
}

bool SiteList::isSame(const Entries& entries) const {
    return std::equal(entries.begin(), entries.end(), lines_.begin(), lines_.end(),
                      [](const auto& entry, const Line& line) {
                          return entry.first == line.place && entry.second == line.entry;
                      });
}

Text SiteList::format(const Entries& entries) {
    Text list(title);
    list += '\n';
    for (const auto& [place, entry] : entries) {
        text::append(list, std::to_string(entry.hash), "\t", std::to_string(entry.size), "\t",
                     std::to_string(entry.time), "\t", place, "\n");
    }
    return list;
}

} // namespace web
