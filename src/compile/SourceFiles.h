#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "compile/Container.h"
#include "compile/FileAddress.h"
#include "compile/Messages.h"
#include "text/FileFinder.h"
#include "workshop/PageFacts.h"

namespace compile {

/// A file of the help's input.
struct SourceFile {
    std::filesystem::path path;
    std::string relative; ///< to the project's folder, as the disk spells it; may climb
    std::string name;     ///< under which it is packed, without a slash in front
    bool isPage = false;
    bool isPacked = false;
    bool isReserved = false;        ///< goes into the help in another form, or not at all
    workshop::PageFacts facts = {}; ///< of a page; without its addresses
};

/// The files that go into the help: those that the project names, those that their pages and style
/// sheets name, and so on. They are packed in the order in which they are met.
class SourceFiles {
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Settings {
        std::filesystem::path folder; ///< the project's; a full path
        std::string shownFolder;      ///< that stands before names in messages, with its slash
        unsigned codePage = 1252;
        bool flat = false;                      ///< names are packed without folders
        std::filesystem::path otherFolder = {}; ///< in which is looked, too; empty for none
        /// Is told of each page that is packed, in their order; `html` is in UTF-8.
        std::function<void(std::size_t file, std::string_view html)> onPage = {};
    };

    SourceFiles(Settings settings, Container& container, Messages& messages);

    /// A file that the project names, which may lie outside its folder; `none`, and said so, when
    /// it cannot be had.
    std::size_t fromProject(std::string_view path, const Place& place);

    /// The same for one that goes into the help in another form, or not at all. To be called before
    /// others name it.
    std::size_t reserve(std::string_view path, const Place& place);

    /// Reads and packs all that has been named, and what that names in turn. False when stopped.
    bool readAll(const std::stop_token& stop);

    /// Says which places that pages, or others, lead to are not there. To be called when all is
    /// read.
    void checkAnchors();
    void wantAnchor(std::size_t file, const std::string& fragment, const Place& place);

    const SourceFile& operator[](std::size_t index) const { return files_[index]; }
    std::size_t size() const { return files_.size(); }

    /// Whether a file that was named is not in the help in any form. To be asked when all is read.
    bool isLeftOut(std::size_t index) const {
        return index != none && !files_[index].isPacked && !files_[index].isReserved;
    }

    /// As messages name a path relative to the project's folder.
    std::string shown(const std::string& relative) const {
        return settings_.shownFolder + relative;
    }

    unsigned codePage() const { return settings_.codePage; }

    /// When the youngest of all files was changed.
    std::chrono::sys_seconds newest() const { return newest_; }
    void noteRead(const std::filesystem::path& path);

    /// Whether a file that was read is the one with this path, under whatever name.
    bool hasRead(const std::filesystem::path& path) const;

private:
    struct WantedAnchor {
        std::size_t file;
        std::string fragment;
        Place place;
    };

    std::size_t projectFile(std::string_view path, const Place& place);
    std::size_t packed(std::size_t index);
    std::size_t fromPage(std::size_t page, const std::string& path, const Place& place);
    std::size_t locate(const std::string& relative, const Place& place,
                       const std::string* within = nullptr);
    std::size_t search(const std::string& relative, const std::string* within);
    bool isWithin(const std::filesystem::path& folder, const std::filesystem::path& path);
    std::size_t found(const std::filesystem::path& folder, const std::filesystem::path& path,
                      const std::string& asked);
    std::string packedName(const std::string& relative) const;
    void checkSpelling(const std::string& relative, std::size_t index, const Place& place);
    std::string fromPercent(std::string_view path) const;
    std::optional<std::string> folderAllowing(std::string_view relative) const;
    void read(std::size_t index);
    void readPageFile(std::size_t index, const std::string& bytes);
    void followAddresses(std::size_t index, const std::vector<workshop::PageText>& addresses,
                         const std::string& base);

    Settings settings_;
    Container& container_;
    Messages& messages_;
    text::FileFinder finder_;
    text::FileFinder otherFinder_;
    std::vector<SourceFile> files_;
    std::size_t next_ = 0;                                  ///< to be read
    std::unordered_map<std::string, std::size_t> known_;    ///< by the key of the relative path
    std::unordered_map<std::string, std::size_t> onDisk_;   ///< by the relative path as it is spelt
    std::unordered_map<std::string, std::size_t> followed_; ///< by folder, NUL and address
    std::set<std::string, std::less<>> outside_;            ///< folders that the project went to
    std::map<std::filesystem::path, int> linkedNames_;      ///< of files that links lead pages to
    std::vector<WantedAnchor> wanted_;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> read_; ///< volumes, and numbers on them
    std::chrono::sys_seconds newest_{};
};

} // namespace compile
