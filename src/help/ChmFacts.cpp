#include "help/ChmFacts.h"

#include <algorithm>
#include <cstdint>

#include "workshop/Encoding.h"

namespace help {

namespace {

/// Reads little-endian numbers and texts from a packed table; what lies behind its end is 0 or
/// empty.
class Table {
public:
    static constexpr std::size_t longestText = 1024; ///< a damaged table may lack the zero bytes

    explicit Table(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t size() const { return bytes_.size(); }

    unsigned number(std::size_t offset, std::size_t bytes) const {
        unsigned value = 0;
        for (std::size_t i = 0; i < bytes && offset + i < size(); ++i) {
            value |= static_cast<unsigned>(static_cast<std::uint8_t>(bytes_[offset + i]))
                     << (8 * i);
        }
        return value;
    }

    /// Up to its zero byte.
    std::string text(std::size_t offset, std::size_t limit = longestText) const {
        const std::string_view found =
            std::string_view(bytes_).substr(std::min(offset, size()), std::min(limit, longestText));
        return std::string(found.substr(0, found.find('\0')));
    }

private:
    std::string bytes_;
};

Table table(const ChmFile& file, const char* path) {
    return Table(file.read(path).value_or(std::string()));
}

enum SystemEntry {
    contentsEntry = 0,
    indexEntry = 1,
    homeEntry = 2,
    titleEntry = 3,
    languageEntry = 4,
    compilerEntry = 9
};

void readSystem(const Table& system, ChmFacts& facts) {
    constexpr std::size_t headerSize = 4;
    constexpr std::size_t entryHeaderSize = 4;
    for (std::size_t at = headerSize; at + entryHeaderSize <= system.size();) {
        const unsigned kind = system.number(at, 2);
        const std::size_t length = system.number(at + 2, 2);
        const std::size_t data = at + entryHeaderSize;
        const auto take = [&](std::string& fact) { fact = system.text(data, length); };
        switch (kind) {
        case contentsEntry:
            take(facts.contentsFile);
            break;
        case indexEntry:
            take(facts.indexFile);
            break;
        case homeEntry:
            take(facts.homePage);
            break;
        case titleEntry:
            take(facts.title);
            break;
        case languageEntry:
            facts.codePage = workshop::codePageOf(system.number(data, 4));
            facts.isSearchable = system.number(data + 8, 4) != 0;
            break;
        case compilerEntry:
            take(facts.compiler);
            break;
        default:
            break;
        }
        at = data + length;
    }
}

/// Pairs of a context number and the place of its page's name among the strings.
void readContexts(const Table& contexts, const Table& strings, ChmFacts& facts) {
    constexpr std::size_t headerSize = 4;
    constexpr std::size_t pairSize = 8;
    constexpr std::size_t mostPairs = 65536; // so many that a damaged table does no harm
    const std::size_t end = std::min(contexts.size(), headerSize + mostPairs * pairSize);
    for (std::size_t at = headerSize; at + pairSize <= end; at += pairSize) {
        facts.contexts.emplace(contexts.number(at, 4), strings.text(contexts.number(at + 4, 4)));
    }
}

/// The first file with an ending, for help that does not name it.
std::string withEnding(const std::vector<std::string>& paths, const char* ending) {
    const auto found = std::find_if(paths.begin(), paths.end(), [ending](const std::string& path) {
        return path.ends_with(ending);
    });
    return found == paths.end() ? std::string() : *found;
}

} // namespace

ChmFacts readFacts(const ChmFile& file) {
    ChmFacts facts;
    readSystem(table(file, "/#SYSTEM"), facts);
    readContexts(table(file, "/#IVB"), table(file, "/#STRINGS"), facts);
    if (facts.contentsFile.empty() || facts.indexFile.empty()) {
        const std::vector<std::string>& paths = file.paths();
        if (facts.contentsFile.empty()) {
            facts.contentsFile = withEnding(paths, ".hhc");
        }
        if (facts.indexFile.empty()) {
            facts.indexFile = withEnding(paths, ".hhk");
        }
    }
    return facts;
}

} // namespace help
