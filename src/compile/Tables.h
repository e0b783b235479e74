#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The tables of texts, pages and addresses in a compiled help. Texts are in the code page of its
/// language.
namespace compile {

/// "#STRINGS": texts that other tables refer to by their offsets.
class StringTable {
public:
    /// What readers take at once.
    static constexpr std::size_t longest = 1000;

    std::uint32_t add(std::string_view text);
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_ = std::string(1, '\0'); ///< offset 0 is for no text
    std::unordered_map<std::string, std::uint32_t> known_;
};

/// What the table of pages says of how a page is reached.
enum class TopicKind : std::uint16_t {
    indexOnly = 0,    ///< a place that only the index leads to
    page = 2,         ///< not in the contents
    contentsMore = 4, ///< one more entry of the contents
    contentsPage = 6
};

/// "#TOPICS", "#URLTBL" and "#URLSTR": what the help leads to.
class TopicTable {
public:
    static constexpr std::uint32_t noTitle = 0xFFFFFFFFU;

    /// Returns the number by which other tables name it. An address is a packed name with a place
    /// in it, as in "html/a.htm#b".
    std::uint32_t add(std::string_view address, std::uint32_t title, TopicKind kind);

    void setKind(std::uint32_t topic, TopicKind kind) { rows_[topic].kind = kind; }
    TopicKind kind(std::uint32_t topic) const { return rows_[topic].kind; }

    /// Its node in the binary contents.
    void setNode(std::uint32_t topic, std::uint32_t offset) { rows_[topic].node = offset; }

    std::uint32_t size() const { return static_cast<std::uint32_t>(rows_.size()); }

    struct Bytes {
        std::string topics;
        std::string addresses; ///< "#URLTBL"
        std::string texts;     ///< "#URLSTR"
    };
    Bytes bytes() const;

private:
    struct Row {
        std::string address;
        std::uint32_t title;
        TopicKind kind;
        std::uint32_t node = 0;
    };
    std::vector<Row> rows_;
};

/// By which readers look an address up. Letter case does not matter.
std::uint32_t addressHash(std::string_view address);

} // namespace compile
