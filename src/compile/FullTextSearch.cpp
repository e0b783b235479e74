#include "compile/FullTextSearch.h"

#include "compile/SearchTable.h"
#include "platform/Files.h"
#include "text/ForeignText.h"

namespace compile {

std::function<void(std::size_t, std::string_view)> FullTextSearch::pageReader() {
    if (!isWanted_) {
        return {};
    }
    return [this](std::size_t file, std::string_view html) {
        if (!index_.addPage(static_cast<std::uint32_t>(file), html)) {
            pagesWithLostWords_.push_back(file);
        }
    };
}

void FullTextSearch::readStopList(const workshop::Line& option, const Place& place,
                                  SourceFiles& files, Messages& messages) {
    if (!isWanted_ || option.text.empty()) {
        return;
    }
    const std::size_t file = files.reserve(option.text, place);
    std::string bytes;
    if (file == SourceFiles::none) {
        return;
    }
    if (const auto error = platform::readFile(files[file].path, bytes)) {
        messages.warn({files.shown(files[file].relative)}, "cannot be read: " + error.message());
    }
    files.noteRead(files[file].path);
    index_.leaveOut(text::decodedSource(bytes, files.codePage()).utf8);
}

std::string FullTextSearch::table(const SourceFiles& files, const HelpTopics& topics,
                                  const workshop::Options& options, Messages& messages) {
    if (!isWanted_) {
        return {};
    }
    if (!pagesWithLostWords_.empty()) {
        messages.note(
            {files.shown(files[pagesWithLostWords_.front()].relative)},
            "the full text search cannot find words with letters that code page "
                + std::to_string(options.codePage) + " lacks, on "
                + (pagesWithLostWords_.size() == 1
                       ? "this page"
                       : std::to_string(pagesWithLostWords_.size()) + " pages from here on"));
    }
    SearchTableOptions table{options.codePage, options.language, {}};
    for (std::size_t i = 0; i < files.size(); ++i) {
        table.topics.push_back(topics.ofPage(i).value_or(0));
    }
    std::string bytes = searchTable(index_, table);
    index_ = SearchIndex(options.codePage); // it takes as much memory again
    return bytes;
}

} // namespace compile
