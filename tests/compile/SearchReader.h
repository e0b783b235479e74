#pragma once

#include <set>
#include <string>
#include <vector>

#include "help/ChmBytes.h"
#include "help/ChmFile.h"

namespace test {

/// Looks words up as the system's viewer does: folded by the table that the help itself holds, from
/// the root of the index down.
class SearchReader {
public:
    explicit SearchReader(const std::filesystem::path& help) {
        const auto file = help::ChmFile::open(help);
        const auto table = [&file](const char* name) { return file->read(name).value_or(""); };
        index_ = table("/$FIftiMain");
        breaker_ = table("/$OBJINST");
        topics_ = table("/#TOPICS");
        addresses_ = table("/#URLTBL");
        names_ = table("/#URLSTR");
    }

    using Pages = std::set<std::string>;

    std::uint64_t depth() const { return number(0x18, 2); }
    std::uint64_t leaves() const { return number(0x10, 4); }

    /// As they lead to each other.
    std::uint64_t linkedLeaves() const {
        std::uint64_t count = 0;
        for (std::size_t node = leafFor({}); node != 0; node = number(node, 4)) {
            ++count;
        }
        return count;
    }

    /// Empty for a text that is no one word.
    std::string folded(const std::string& bytes) const {
        constexpr std::size_t records = 24 + 0x50;
        constexpr std::size_t recordSize = 10;
        constexpr std::size_t ligatures = records + 256 * recordSize;
        std::string word;
        for (const char byte : bytes) {
            const std::size_t record = records + recordSize * static_cast<unsigned char>(byte);
            const std::uint64_t kind = help::numberAt(breaker_, record, 2);
            if (kind == 0x0C) {
                word += breaker_.substr(breaker_.find(byte, ligatures) + 1, 2);
            } else if (kind >= 1 && kind <= 3) {
                word += breaker_[record + 4];
            } else if (kind != 6 && !(byte == '.' && word.front() <= '9')
                       && !(byte == ',' && word.front() <= '9')) {
                return {};
            } else if (byte == '.') {
                word += byte;
            }
        }
        return word.substr(0, 99);
    }

    /// The pages that hold a word of the index, those in whose texts or titles it is; with
    /// `onlyTitles` only the latter.
    Pages find(const std::string& word, bool onlyTitles = false) const {
        Pages pages;
        for (std::size_t node = leafFor(word); node != 0; node = number(node, 4)) {
            std::string each;
            const std::size_t end = node + 4096 - number(node + 6, 2);
            for (std::size_t at = node + 8; at < end;) {
                takeWord(at, each);
                const bool isTitle = index_[at++] == 1;
                const std::uint64_t count = packed(at);
                const std::uint64_t place = number(at, 4);
                at += 6;
                packed(at);
                if (each == word && (isTitle || !onlyTitles)) {
                    addPages(place, count, pages);
                } else if (each > word) {
                    return pages;
                }
            }
        }
        return pages;
    }

private:
    std::uint64_t number(std::size_t at, std::size_t size) const {
        return help::numberAt(index_, at, size);
    }

    std::uint64_t packed(std::size_t& at) const {
        std::uint64_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto byte = static_cast<unsigned char>(index_.at(at++));
            value |= std::uint64_t(byte & 0x7FU) << shift;
            if (byte < 0x80) {
                return value;
            }
        }
    }

    void takeWord(std::size_t& at, std::string& word) const {
        const std::size_t length = number(at, 1) - 1;
        word = word.substr(0, number(at + 1, 1)) + index_.substr(at + 2, length);
        at += 2 + length;
    }

    std::size_t leafFor(const std::string& word) const {
        std::size_t node = number(0x14, 4);
        for (std::uint64_t level = depth(); level > 1; --level) {
            node = childFor(node, word);
        }
        return node;
    }

    std::size_t childFor(std::size_t node, const std::string& word) const {
        std::string last;
        const std::size_t end = node + 4096 - number(node, 2);
        for (std::size_t at = node + 2; at < end; at += 6) {
            takeWord(at, last);
            if (last >= word) {
                return number(at, 4);
            }
        }
        return 0;
    }

    void addPages(std::size_t place, std::uint64_t count, Pages& pages) const {
        std::uint64_t topic = 0;
        for (; count > 0; --count) {
            std::size_t bit = place * 8;
            topic += code(bit, number(0x1F, 1));
            for (std::uint64_t positions = code(bit, number(0x21, 1)); positions > 0; --positions) {
                code(bit, number(0x23, 1));
            }
            place = (bit + 7) / 8;
            const std::uint64_t row = help::numberAt(topics_, topic * 16 + 8, 4);
            pages.emplace(names_.c_str() + help::numberAt(addresses_, row + 8, 4) + 8);
        }
    }

    std::uint64_t code(std::size_t& bit, std::uint64_t root) const {
        const auto next = [&] {
            const auto byte = static_cast<unsigned char>(index_.at(bit / 8));
            return std::uint64_t(byte >> (7 - bit++ % 8) & 1U);
        };
        std::uint64_t ones = 0;
        while (next() == 1) {
            ++ones;
        }
        std::uint64_t value = ones == 0 ? 0 : 1;
        for (std::uint64_t bits = ones == 0 ? root : root + ones - 1; bits > 0; --bits) {
            value = value << 1U | next();
        }
        return value;
    }

    std::string index_, breaker_, topics_, addresses_, names_;
};

} // namespace test
