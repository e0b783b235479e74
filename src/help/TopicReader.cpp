#include "help/TopicReader.h"

#include "help/ChmBytes.h"

namespace help {

namespace {

constexpr std::size_t rowSize = 16;
constexpr std::size_t titlePlace = 4;
constexpr std::size_t addressPlace = 8; // in a row of this table and in one of the next

std::string textAt(const std::string& bytes, std::uint64_t place) {
    return place < bytes.size() ? bytes.substr(place, bytes.find('\0', place) - place)
                                : std::string();
}

} // namespace

TopicReader::TopicReader(const ChmFile& file) {
    const auto table = [&file](const char* path) { return file.read(path).value_or(""); };
    topics_ = table("/#TOPICS");
    addresses_ = table("/#URLTBL");
    texts_ = table("/#URLSTR");
    strings_ = table("/#STRINGS");
}

std::size_t TopicReader::size() const {
    return topics_.size() / rowSize;
}

std::optional<std::string> TopicReader::address(std::size_t topic) const {
    constexpr std::uint64_t textHead = 8;
    const std::uint64_t row = numberAt(topics_, topic * rowSize + addressPlace, 4);
    const std::uint64_t place = numberAt(addresses_, row + addressPlace, 4) + textHead;
    if (row >= addresses_.size() || place > texts_.size()) {
        return {};
    }
    return textAt(texts_, place);
}

std::string TopicReader::title(std::size_t topic) const {
    const std::uint64_t place = numberAt(topics_, topic * rowSize + titlePlace, 4);
    return textAt(strings_, place);
}

} // namespace help
