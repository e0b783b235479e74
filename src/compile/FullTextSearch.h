#pragma once

#include "compile/HelpTopics.h"
#include "compile/SearchIndex.h"
#include "compile/SourceFiles.h"
#include "workshop/HelpProject.h"

namespace compile {

/// The full text search of a help: from its pages, as they are read, to the table in the file.
class FullTextSearch {
public:
    /// One that is not wanted does nothing.
    FullTextSearch(bool isWanted, unsigned codePage) : isWanted_(isWanted), index_(codePage) {}

    /// What the files tell of each page; see there.
    std::function<void(std::size_t file, std::string_view html)> pageReader();

    /// Reads the words that the search leaves out, from the file that the project names.
    void readStopList(const workshop::Line& option, const Place& place, SourceFiles& files,
                      Messages& messages);

    /// The table; empty for none. All pages are topics by now, in the order of the files.
    std::string table(const SourceFiles& files, const HelpTopics& topics,
                      const workshop::Options& options, Messages& messages);

private:
    bool isWanted_;
    SearchIndex index_;
    std::vector<std::size_t> pagesWithLostWords_;
};

} // namespace compile
