#include "help/SearchTable.h"

#include <cstdint>

#include "Require.h"

/// The index of somebody else's help may say anything of itself. It is read in bounds, and to an
/// end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto table =
        help::SearchTable::read(std::string(reinterpret_cast<const char*>(data), size));
    if (!table) {
        return 0;
    }
    std::string last;
    table->walk({}, [&](const help::SearchTable::Entry& entry) {
        require(entry.offset + entry.size <= size, "places lie behind the end");
        help::SearchTable::PageReader pages(*table, entry);
        std::uint64_t count = 0;
        while (pages.next()) {
            require(++count <= entry.pages, "more pages than there are");
            require(pages.positions.size() <= entry.size * 8, "more places than bits");
        }
        last = entry.word;
        return true;
    });
    table->walk(last, [](const help::SearchTable::Entry&) { return false; });
    if (const auto leaves = table->allLeaves()) {
        require(leaves->size() <= size / 4096 + 1, "more leaves than there is room for");
    }
    return 0;
}
