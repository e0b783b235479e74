#include "help/ChmFacts.h"

#include <algorithm>
#include <cstdint>

#include "text/Address.h"
#include "text/CodePage.h"
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
            facts.language = system.number(data, 4);
            facts.codePage = workshop::codePageOf(facts.language);
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

bool isThere(const ChmFile& file, const std::string& name, unsigned codePage) {
    return !name.empty()
           && file.holds('/' + text::plainPath(text::CodePage(codePage).decoded(name)));
}

/// What the help's windows show counts for what it does not say itself, or says wrongly.
void readWindows(const Table& windows, const Table& strings, const ChmFile& file, ChmFacts& facts) {
    constexpr std::size_t headerSize = 8;
    constexpr std::size_t mostWindows = 256;
    const std::size_t size = std::max(windows.number(4, 4), 1U);
    struct Field {
        std::size_t place;
        std::string& fact;
        bool isFile;
    };
    const Field fields[] = {{0x60, facts.contentsFile, true},
                            {0x64, facts.indexFile, true},
                            {0x68, facts.homePage, false},
                            {0x6C, facts.homePage, false},
                            {0x14, facts.title, false}};
    const std::size_t count = std::min<std::size_t>(windows.number(0, 4), mostWindows);
    for (std::size_t i = 0; i < count && headerSize + i * size < windows.size(); ++i) {
        for (const Field& field : fields) {
            const unsigned place = windows.number(headerSize + i * size + field.place, 4);
            const std::string text = place == 0 ? std::string() : strings.text(place);
            if (field.fact.empty()
                || (field.isFile && !isThere(file, field.fact, facts.codePage))) {
                field.fact = text.empty() ? field.fact : text;
            }
        }
    }
}

/// The first file with an ending, for help that names none that is there.
void findFile(std::string& fact, const ChmFile& file, unsigned codePage,
              std::string_view lowerEnding) {
    const std::vector<std::string>& paths = file.paths();
    if (isThere(file, fact, codePage)) {
        return;
    }
    const auto found = std::find_if(paths.begin(), paths.end(), [&](const std::string& path) {
        return packedKey(path).ends_with(lowerEnding);
    });
    fact = found == paths.end() ? fact : *found;
}

} // namespace

ChmFacts readFacts(const ChmFile& file) {
    ChmFacts facts;
    const Table strings = table(file, "/#STRINGS");
    readSystem(table(file, "/#SYSTEM"), facts);
    readContexts(table(file, "/#IVB"), strings, facts);
    readWindows(table(file, "/#WINDOWS"), strings, file, facts);
    findFile(facts.contentsFile, file, facts.codePage, ".hhc");
    findFile(facts.indexFile, file, facts.codePage, ".hhk");
    return facts;
}

} // namespace help
