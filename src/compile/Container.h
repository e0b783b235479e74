#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "compile/CompressedStream.h"
#include "compile/Directory.h"

namespace compile {

struct PackOptions {
    unsigned language = 0x409; ///< an LCID
    std::uint32_t time = 0;    ///< stands in the file and means nothing; fixed for the same bytes
    unsigned jobs = 0;         ///< threads at work, the caller's one included; 0: one a processor
    Progress progress = {};    ///< called within pack(), on the caller's thread
    std::stop_token stop = {}; ///< makes pack() give up
};

/// A compiled help file while it is put together: the files that are packed in it, the directory
/// and what holds them together. Compression goes on in the background while files are added, so
/// that the caller can prepare the next ones meanwhile. The result depends on what was added, in
/// which order, and on nothing else.
class Container {
public:
    /// The longest name that every reader takes, in bytes.
    static constexpr std::size_t longestName = 511;

    explicit Container(PackOptions options);

    /// Packs a file. Its name is in UTF-8 and begins with a slash, as in "/html/a.htm" or
    /// "/#STRINGS"; folders need not be added. False, and nothing is added, when the name is too
    /// long or taken, in any case of ASCII's letters.
    bool add(std::string_view name, std::string_view content,
             Section section = Section::compressed);

    /// The file's bytes; nothing when it was stopped. To be called once, at the end.
    std::optional<std::string> pack();

private:
    void addFolderOf(std::string_view name);
    std::string plainSection();

    PackOptions options_;
    CompressedStream stream_;
    std::string plainFiles_; ///< the contents of those that are not compressed, one after another
    std::vector<DirectoryEntry> entries_;
    std::unordered_set<std::string> names_; ///< as directoryKey()
};

} // namespace compile
