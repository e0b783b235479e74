#include "compile/HelpTopics.h"

namespace compile {

std::uint32_t HelpTopics::add(const std::string& address, const std::string& title, TopicKind kind,
                              const Place& place) {
    const std::uint32_t offset = title.empty()
                                     ? TopicTable::noTitle
                                     : strings_.add(encoder_.text(title, place, "the title"));
    const std::uint32_t topic =
        table.add(encoder_.text(address, place, "the file name"), offset, kind);
    rows_.try_emplace(caseKey(address), Row{topic, title});
    return topic;
}

void HelpTopics::addFile(const std::string& name) {
    add(name, {}, TopicKind::page, {name});
}

void HelpTopics::addPages(const SitemapSource& contents) {
    std::unordered_map<std::size_t, const std::string*> names; // in the contents, by file
    for (std::size_t i = 0; i < contents.files.size(); ++i) {
        const workshop::SitemapEntry& entry = contents.map.entries[i];
        if (!entry.targets.empty() && entry.targets.front().page.find('#') == std::string::npos) {
            names.try_emplace(contents.files[i].front(), &entry.name);
        }
    }
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const SourceFile& file = files_[i];
        if (file.isPage && file.isPacked) {
            const auto name = names.find(i);
            const bool lacksTitle = file.facts.title.text.empty() && name != names.end();
            add(file.name, lacksTitle ? *name->second : file.facts.title.text, TopicKind::page,
                {files_.shown(file.relative), file.facts.title.line});
        }
    }
}

std::uint32_t HelpTopics::ofContents(const SitemapSource& contents, std::size_t entry, bool named) {
    const workshop::SitemapEntry& each = contents.map.entries[entry];
    const std::string& address = each.targets.front().page;
    const Place place{contents.shown, each.line};
    const auto known = rows_.find(caseKey(address));
    if (known == rows_.end()) {
        const bool isPlace = address.find('#') != std::string::npos;
        return add(address, each.name, isPlace ? TopicKind::contentsMore : TopicKind::contentsPage,
                   place);
    }
    if (table.kind(known->second.topic) == TopicKind::page) {
        table.setKind(known->second.topic, TopicKind::contentsPage);
    }
    return named && known->second.title != each.name
               ? add(address, each.name, TopicKind::contentsMore, place)
               : known->second.topic;
}

std::vector<ContentsNode> HelpTopics::addContents(const SitemapSource& contents, bool named) {
    std::vector<ContentsNode> nodes;
    nodes.reserve(contents.map.entries.size());
    for (std::size_t i = 0; i < contents.map.entries.size(); ++i) {
        const workshop::SitemapEntry& entry = contents.map.entries[i];
        ContentsNode node{entry.depth, {}, 0, entry.isNew};
        if (!contents.files[i].empty() && contents.files[i].front() != SourceFiles::none) {
            node.topic = ofContents(contents, i, named);
        } else {
            node.name =
                strings_.add(encoder_.text(entry.name, {contents.shown, entry.line}, "the title"));
        }
        nodes.push_back(node);
    }
    return nodes;
}

std::optional<std::uint32_t> HelpTopics::ofKeyword(const KeywordTarget& target,
                                                   const Place& place) {
    if (target.file == SourceFiles::none) {
        return {};
    }
    const auto known = rows_.find(caseKey(target.address));
    return known != rows_.end() ? known->second.topic
                                : add(target.address, target.title, TopicKind::indexOnly, place);
}

std::optional<std::uint32_t> HelpTopics::ofPage(std::size_t file) const {
    const auto known = rows_.find(caseKey(files_[file].name));
    return known == rows_.end() ? std::nullopt : std::optional(known->second.topic);
}

} // namespace compile
