#pragma once

#include <optional>
#include <unordered_map>

#include "compile/ContentsTree.h"
#include "compile/KeywordIndex.h"
#include "compile/SitemapSource.h"
#include "compile/Tables.h"
#include "compile/TextEncoder.h"

namespace compile {

/// The topics of a help while they are collected: its pages, and the places that contents and index
/// lead to.
class HelpTopics {
public:
    HelpTopics(const SourceFiles& files, const TextEncoder& encoder, StringTable& strings)
        : files_(files), encoder_(encoder), strings_(strings) {}

    /// All pages. Those without a title of their own get the one of the contents.
    void addPages(const SitemapSource& contents);

    /// The entries of the contents. With `named`, an entry that has another name than its page
    /// keeps it.
    std::vector<ContentsNode> addContents(const SitemapSource& contents, bool named);

    /// The topic of a keyword's target; nothing for one that is not in the help.
    std::optional<std::uint32_t> ofKeyword(const KeywordTarget& target, const Place& place);

    /// The topic of a page; nothing for another file.
    std::optional<std::uint32_t> ofPage(std::size_t file) const;

    /// A file of the help that is no topic, but has to be known.
    void addFile(const std::string& name);

    TopicTable table;

private:
    struct Row {
        std::uint32_t topic;
        std::string title; ///< in UTF-8
    };

    std::uint32_t add(const std::string& address, const std::string& title, TopicKind kind,
                      const Place& place);
    std::uint32_t ofContents(const SitemapSource& contents, std::size_t entry, bool named);

    const SourceFiles& files_;
    const TextEncoder& encoder_;
    StringTable& strings_;
    std::unordered_map<std::string, Row> rows_; ///< by the key of the address
};

} // namespace compile
