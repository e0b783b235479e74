#include "help/BinaryCheck.h"

#include <unordered_set>

#include "help/BinaryLists.h"
#include "help/ChmBytes.h"
#include "help/TopicReader.h"

namespace help {

namespace {

constexpr std::uint32_t none = 0xFFFFFFFFU;

std::uint32_t wordAt(std::string_view bytes, std::size_t place) {
    return static_cast<std::uint32_t>(numberAt(bytes, place, 4));
}

/// Walks all nodes of the contents.
class ContentsCheck {
public:
    explicit ContentsCheck(const ChmFile& file)
        : tree_(file.read("/#TOCIDX").value_or("")), strings_(file.sizeOf("/#STRINGS")),
          topics_(TopicReader(file).size()) {}

    std::vector<std::string> run() {
        if (!tree_.empty()) {
            open_.push_back({wordAt(tree_, 0), 0});
        }
        while (!open_.empty() && faults_.empty()) { // a node behind a damaged one means nothing
            const Node node = open_.back();
            open_.pop_back();
            check(node);
        }
        return std::move(faults_);
    }

private:
    struct Node {
        std::uint32_t place;
        std::uint32_t parent;
    };

    void fault(const Node& node, const std::string& text) {
        faults_.push_back("binary contents: the entry at " + std::to_string(node.place) + ' '
                          + text);
    }

    void check(const Node& node) {
        enum Flag : std::uint32_t { isBook = 4, hasTopic = 8 };
        constexpr std::size_t firstNode = 4096;
        constexpr std::size_t leafSize = 20;
        constexpr std::size_t bookSize = 28;
        const std::uint32_t flags = wordAt(tree_, node.place + 4);
        const std::uint32_t value = wordAt(tree_, node.place + 8);
        const std::size_t size = (flags & isBook) != 0 ? bookSize : leafSize;
        if (node.place < firstNode || node.place + size > tree_.size()) {
            fault(node, "lies outside the file");
        } else if (!known_.insert(node.place).second) {
            fault(node, "is reached twice");
        } else if (node.place / firstNode != (node.place + size - 1) / firstNode) {
            fault(node, "lies in two blocks");
        } else if (wordAt(tree_, node.place + 0xC) != node.parent) {
            fault(node, "does not know the one above it");
        } else if ((flags & hasTopic) != 0 && value >= topics_) {
            fault(node, "has topic " + std::to_string(value) + ", which is not there");
        } else if ((flags & hasTopic) == 0 && value >= strings_) {
            fault(node, "has no name");
        } else {
            lead(wordAt(tree_, node.place + 0x10), node.parent);
            lead((flags & isBook) != 0 ? wordAt(tree_, node.place + 0x14) : 0, node.place);
        }
    }

    void lead(std::uint32_t place, std::uint32_t parent) {
        if (place != 0) {
            open_.push_back({place, parent});
        }
    }

    std::string tree_;
    std::uint64_t strings_;
    std::size_t topics_;
    std::vector<Node> open_;
    std::unordered_set<std::uint32_t> known_;
    std::vector<std::string> faults_;
};

/// Looks at one keyword tree: first its list from the first block to the last, then the ways there
/// from the root.
class TreeCheck {
public:
    TreeCheck(const ChmFile& file, const std::string& folder)
        : folder_(folder), tree_(file.read(folder + "BTree").value_or("")),
          map_(file.read(folder + "Map").value_or("")), dataSize_(file.sizeOf(folder + "Data")),
          topics_(TopicReader(file).size()) {}

    std::vector<std::string> run() {
        if (!tree_.empty() && checkHead()) {
            checkList();
            if (faults_.empty()) {
                checkWay(wordAt(tree_, 0x1E), static_cast<unsigned>(numberAt(tree_, 0x2A, 2)));
                if (faults_.empty() && reached_ != list_.size()) {
                    fault("not all of the list can be reached from its root");
                }
            }
        }
        return std::move(faults_);
    }

private:
    using Layout = KeywordTreeLayout;

    struct ListBlock {
        std::uint32_t block;
        std::string first; ///< keyword
    };

    void fault(const std::string& text) {
        faults_.push_back("binary index " + folder_.substr(1, folder_.size() - 2) + ": " + text);
    }
    static std::string named(std::uint64_t block) { return "block " + std::to_string(block) + ' '; }

    bool checkHead() {
        constexpr std::uint64_t signature = 0x293B;
        blocks_ = wordAt(tree_, 0x26);
        const bool isSound = numberAt(tree_, 0, 2) == signature
                             && numberAt(tree_, 4, 2) == Layout::blockSize && blocks_ > 0
                             && tree_.size() == Layout::headSize + Layout::blockSize * blocks_;
        if (!isSound) {
            fault("its header does not fit its size");
        }
        return isSound;
    }

    /// The entries of a block; nothing when they are not what its head says.
    std::string_view entries(std::uint64_t block, std::size_t head) const {
        const auto bytes = std::string_view(tree_).substr(
            Layout::headSize + block * Layout::blockSize, Layout::blockSize);
        const std::uint64_t unused = numberAt(bytes, 0, 2);
        return unused + head > bytes.size()
                   ? std::string_view()
                   : bytes.substr(head, bytes.size() - head - static_cast<std::size_t>(unused));
    }
    std::uint64_t atHead(std::uint64_t block, std::size_t place, std::size_t size) const {
        return numberAt(tree_, Layout::headSize + block * Layout::blockSize + place, size);
    }

    void checkList() {
        const std::uint32_t last = wordAt(tree_, 0x1A);
        std::uint32_t before = none;
        for (std::uint32_t block = 0; faults_.empty();) {
            if (block >= blocks_ || list_.size() > last) {
                fault("its list leads to " + named(block) + "and beyond its last one");
                break;
            }
            if (atHead(block, 4, 4) != before) {
                fault(named(block) + "is not linked with the one before it");
            }
            if (wordAt(map_, 2 + 8 * list_.size()) != keywords_
                || wordAt(map_, 6 + 8 * list_.size()) != block) {
                fault("its map does not lead to " + named(block));
            }
            checkEntries(block);
            before = block;
            block = static_cast<std::uint32_t>(atHead(block, 8, 4));
            if (block == none) {
                break;
            }
        }
        if (faults_.empty()
            && (before != last || keywords_ != wordAt(tree_, 0x2C)
                || list_.size() != numberAt(map_, 0, 2))) {
            fault("its list is not as long as its header and its map say");
        }
        if (faults_.empty() && dataSize_ != dataPerKeyword * keywords_) {
            fault("its data are not those of its keywords");
        }
    }

    void checkEntries(std::uint32_t block) {
        std::string_view bytes = entries(block, Layout::listHead);
        std::uint64_t left = atHead(block, 2, 2);
        list_.push_back({block, {}});
        for (BinaryKeyword keyword; left > 0 && takeKeyword(bytes, Layout::listTail, keyword);
             --left, keyword = {}) {
            for (const std::uint32_t topic : keyword.topics) {
                if (topic >= topics_) {
                    fault('"' + keyword.keyword + "\" has topic " + std::to_string(topic)
                          + ", which is not there");
                }
            }
            if (list_.back().first.empty()) {
                list_.back().first = keyword.keyword;
            }
            ++keywords_;
        }
        if (left > 0 || !bytes.empty() || list_.back().first.empty()) {
            fault(named(block) + "is damaged");
        }
    }

    /// The blocks of the list are met in their order, each behind the keyword that it begins with.
    void checkWay(std::uint32_t block, unsigned levels) {
        if (levels == 0 || levels > mostLevels || block >= blocks_ || ++steps_ > blocks_) {
            fault("its root leads nowhere");
            return;
        }
        if (levels == 1) {
            reached_ += reached_ < list_.size() && list_[reached_].block == block ? 1U : 0U;
            return;
        }
        std::string_view bytes = entries(block, Layout::leadHead);
        checkWay(static_cast<std::uint32_t>(atHead(block, 4, 4)), levels - 1);
        for (std::uint64_t i = atHead(block, 2, 2); i > 0 && faults_.empty(); --i) {
            BinaryKeyword keyword;
            const std::string_view all = bytes;
            if (!takeKeyword(bytes, Layout::leadTail, keyword)) {
                fault(named(block) + "is damaged");
                return;
            }
            if (reached_ >= list_.size() || list_[reached_].first != keyword.keyword) {
                fault(named(block) + "leads to \"" + keyword.keyword
                      + "\", with which no block begins there");
                return;
            }
            checkWay(wordAt(all, all.size() - bytes.size() - Layout::leadTail), levels - 1);
        }
    }

    static constexpr std::uint64_t dataPerKeyword = 13;
    static constexpr unsigned mostLevels = 64; ///< more than any tree has that fits a file

    std::string folder_;
    std::string tree_;
    std::string map_;
    std::uint64_t dataSize_;
    std::size_t topics_;
    std::uint64_t blocks_ = 0;
    std::uint64_t keywords_ = 0; ///< met in the list so far
    std::vector<ListBlock> list_;
    std::size_t reached_ = 0; ///< blocks of the list, from the root
    std::uint64_t steps_ = 0;
    std::vector<std::string> faults_;
};

} // namespace

std::vector<std::string> contentsFaults(const ChmFile& file) {
    return ContentsCheck(file).run();
}

std::vector<std::string> keywordFaults(const ChmFile& file) {
    std::vector<std::string> faults;
    for (const char* folder : {"/$WWKeywordLinks/", "/$WWAssociativeLinks/"}) {
        for (std::string& fault : TreeCheck(file, folder).run()) {
            faults.push_back(std::move(fault));
        }
    }
    return faults;
}

} // namespace help
