#include "help/DirectoryCheck.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>

#include "help/ChmBytes.h"
#include "help/ChmFile.h"

namespace help {

namespace {

using Faults = std::vector<std::string>;

constexpr std::uint64_t noBlock = 0xFFFFFFFF;
constexpr std::size_t mostFaults = 1000; ///< a damaged file could have any number

struct Entry {
    std::string name;
    std::string key;
    std::size_t place; ///< behind the block's header
    std::uint64_t section = 0, offset = 0, size = 0;
    std::uint64_t child = 0; ///< in an index block, in place of these
};

struct Block {
    bool isIndex = false;
    bool isSorted = false;
    std::uint64_t previous = noBlock, next = noBlock;
    std::vector<Entry> entries;
};

class Check {
public:
    explicit Check(std::string_view file) : file_(file) {}

    Faults run() {
        if (!file_.starts_with("ITSF") || !directory().starts_with("ITSP")) {
            return {"this is no compiled help"};
        }
        checkHeaders();
        readBlocks();
        checkChain();
        checkOrder();
        checkIndex();
        checkPlaces();
        return std::move(faults_);
    }

private:
    std::string_view directory() const {
        constexpr std::size_t directoryPlace = 0x48; // of its offset in the file
        return file_.substr(
            std::min<std::uint64_t>(numberAt(file_, directoryPlace, 8), file_.size()));
    }
    std::uint64_t header(std::size_t offset) const { return numberAt(directory(), offset, 4); }

    void fault(std::string text) {
        if (faults_.size() < mostFaults) {
            faults_.push_back(std::move(text));
        }
    }
    static std::string named(std::uint64_t block) { return "block " + std::to_string(block); }

    void checkHeaders();
    void readBlocks();
    std::optional<Block> readBlock(std::string_view bytes, std::uint64_t number);
    void checkShortcuts(std::string_view bytes, const Block& block, std::uint64_t number);
    void checkChain();
    void checkOrder();
    void checkIndex();
    bool indexLeadsTo(const Entry& wanted) const;
    void checkPlaces();

    std::string_view file_;
    std::vector<Block> blocks_;
    Faults faults_;
};

void Check::checkHeaders() {
    constexpr std::size_t sizePlace = 0x38;           // of the offset of what holds the size
    constexpr std::size_t identificationPlace = 0x28; // the second one
    constexpr std::string_view identification = "\x11\xFD\x01\x7C\xAA\x7B\xD0\x11";
    if (file_.substr(identificationPlace, identification.size()) != identification) {
        fault("the header's second identification is wrong: strict readers refuse the file");
    }
    const std::uint64_t size = numberAt(file_, numberAt(file_, sizePlace, 8) + 8, 8);
    if (size != file_.size()) {
        fault("the header says " + std::to_string(size) + " bytes, and there are "
              + std::to_string(file_.size()));
    }
    if (const std::uint64_t first = header(0x20); first != 0) {
        fault("the directory is said to begin with " + named(first)
              + ": some readers do not list what stands before it");
    }
}

void Check::readBlocks() {
    const std::uint64_t headerSize = header(0x08);
    const std::uint64_t blockSize = header(0x10);
    const std::uint64_t count = header(0x2C);
    constexpr std::uint64_t least = 32;
    constexpr std::uint64_t most = 8192; // that all readers take
    if (blockSize < least || blockSize > most || headerSize > directory().size()
        || count > (directory().size() - headerSize) / blockSize) {
        fault("the directory is damaged");
        return;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
        auto block = readBlock(directory().substr(headerSize + i * blockSize, blockSize), i);
        blocks_.push_back(block ? std::move(*block) : Block());
    }
}

std::optional<Block> Check::readBlock(std::string_view bytes, std::uint64_t number) {
    Block block;
    block.isIndex = bytes.starts_with("PMGI");
    const std::size_t headerSize = block.isIndex ? 8 : 0x14;
    const std::uint64_t unused = numberAt(bytes, 4, 4);
    if ((!block.isIndex && !bytes.starts_with("PMGL")) || unused > bytes.size() - headerSize) {
        fault(named(number) + " is damaged");
        return {};
    }
    block.previous = numberAt(bytes, 0x0C, 4);
    block.next = numberAt(bytes, 0x10, 4);
    std::string_view rest = bytes.substr(headerSize, bytes.size() - headerSize - unused);
    const std::size_t whole = rest.size();
    while (!rest.empty()) {
        Entry entry{{}, {}, whole - rest.size()};
        std::uint64_t length = 0;
        if (!takePackedNumber(rest, length) || length > rest.size()) {
            fault(named(number) + " is damaged");
            return {};
        }
        entry.name = rest.substr(0, length);
        entry.key = packedKey(entry.name);
        rest.remove_prefix(length);
        const bool isRead = block.isIndex ? takePackedNumber(rest, entry.child)
                                          : takePackedNumber(rest, entry.section)
                                                && takePackedNumber(rest, entry.offset)
                                                && takePackedNumber(rest, entry.size);
        if (!isRead) {
            fault(named(number) + " is damaged");
            return {};
        }
        block.entries.push_back(std::move(entry));
    }
    block.isSorted = std::is_sorted(block.entries.begin(), block.entries.end(),
                                    [](const Entry& a, const Entry& b) { return a.key < b.key; });
    checkShortcuts(bytes, block, number);
    return block;
}

/// At its end, a block has its number of entries and, backwards, the places of every so many of
/// them.
void Check::checkShortcuts(std::string_view bytes, const Block& block, std::uint64_t number) {
    constexpr unsigned mostDensity = 10;
    const std::size_t step =
        1 + (std::size_t(1) << std::min<std::uint64_t>(header(0x14), mostDensity));
    const std::size_t count = block.entries.size();
    bool right = numberAt(bytes, bytes.size() - 2, 2) == count;
    for (std::size_t i = step, at = bytes.size() - 4; i < count && right; i += step, at -= 2) {
        right = numberAt(bytes, at, 2) == block.entries[i].place;
    }
    if (!right) {
        fault("the shortcuts in " + named(number)
              + " are wrong: fast readers do not find its files");
    }
}

/// The blocks with names lead to each other.
void Check::checkChain() {
    std::uint64_t previous = noBlock;
    for (std::uint64_t i = 0; i < blocks_.size(); ++i) {
        if (blocks_[i].isIndex) {
            continue;
        }
        if (blocks_[i].previous != previous
            || (previous != noBlock && blocks_[previous].next != i)) {
            fault(named(i) + " is not linked with the one before it");
        }
        previous = i;
    }
    if (previous != noBlock && (blocks_[previous].next != noBlock || header(0x24) != previous)) {
        fault(named(previous) + " is not said to be the last one with names");
    }
}

void Check::checkOrder() {
    const Entry* before = nullptr;
    for (const Block& block : blocks_) {
        for (const Entry& entry : block.entries) {
            if (block.isIndex) {
                break;
            }
            if (before != nullptr && before->key == entry.key) {
                fault(entry.name + " is there twice");
            } else if (before != nullptr && before->key > entry.key) {
                fault(entry.name + " stands behind " + before->name
                      + ": readers that search by name miss one of them");
            }
            before = &entry;
        }
    }
}

/// The first entry behind a name. Readers stop there, also where more follow in disorder.
std::vector<Entry>::const_iterator behind(const Block& block, const std::string& key) {
    const auto isBehind = [&key](const Entry& entry) { return entry.key > key; };
    return block.isSorted ? std::partition_point(block.entries.begin(), block.entries.end(),
                                                 std::not_fn(isBehind))
                          : std::find_if(block.entries.begin(), block.entries.end(), isBehind);
}

/// Goes down through the index as readers do: to the last name that is not behind the wanted one.
bool Check::indexLeadsTo(const Entry& wanted) const {
    constexpr std::uint64_t mostLevels = 16;
    std::uint64_t number = header(0x1C);
    number = number == noBlock ? header(0x20) : number;
    for (std::uint64_t level = std::min(header(0x18), mostLevels);
         level > 0 && number < blocks_.size(); --level) {
        const Block& block = blocks_[number];
        const auto found = behind(block, wanted.key);
        if (found == block.entries.begin()) {
            return false;
        }
        if (!block.isIndex) {
            return (found - 1)->key == wanted.key;
        }
        number = (found - 1)->child;
    }
    return false;
}

void Check::checkIndex() {
    for (const Block& block : blocks_) {
        for (const Entry& entry : block.entries) {
            if (!block.isIndex && !indexLeadsTo(entry)) {
                fault(entry.name + " cannot be found by its name");
            }
        }
    }
}

/// Sections and sizes. What says how to unpack is looked at closely, as readers differ in what they
/// take.
void Check::checkPlaces() {
    constexpr std::uint64_t settingsSize = 28;
    const std::uint64_t content = numberAt(file_, 0x58, 8);
    std::uint64_t compressedSize = 0;
    std::vector<const Entry*> compressed;
    for (const Block& block : blocks_) {
        for (const Entry& entry : block.entries) {
            if (block.isIndex) {
                break;
            }
            if (entry.section == 1) {
                compressed.push_back(&entry);
            } else if (entry.section > 1) {
                fault(entry.name + " lies in a section that no reader knows");
            } else if (content > file_.size() || entry.offset > file_.size() - content
                       || entry.size > file_.size() - content - entry.offset) {
                fault(entry.name + " lies outside of the file");
            } else if (entry.name.ends_with("/SpanInfo")) {
                compressedSize = numberAt(file_, content + entry.offset, 8);
            } else if (entry.name.ends_with("/ControlData") && entry.size != settingsSize) {
                fault(entry.name + " has " + std::to_string(entry.size)
                      + " bytes: strict readers unpack nothing");
            }
        }
    }
    for (const Entry* entry : compressed) {
        if (entry->offset > compressedSize || entry->size > compressedSize - entry->offset) {
            fault(entry->name + " lies outside of what is compressed");
        }
    }
}

} // namespace

std::vector<std::string> directoryFaults(std::string_view file) {
    return Check(file).run();
}

} // namespace help
